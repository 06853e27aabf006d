// SPDX-License-Identifier: MIT
#include "ui/document/EditorPreview.h"

#include "host/GameFiles.h"
#include "install/Installation.h"
#include "install/Train.h"
#include "ui/document/EditorControls.h"
#include "ui/document/StockFigures.h"
#include "ui/document/StockPictures.h"
#include "ui/view3d/VehiclePreview.h"

#include <QItemSelectionModel>

namespace document {

namespace {

/// Returns the vehicle's own name, if it is known, and where it is.
QString nameOf(const StockItem &item, const StockFigures &figures)
{
    const QString place = QString::fromStdString(item.folder + " / " + item.shape);
    const auto facts = figures.Facts(item);
    const std::string name =
        facts ? content::FactText(*facts, content::FactColumn::Name, content::UnitSystem::Metric)
              : std::string();
    return name.empty() || name == "?"
               ? place
               : QString::fromStdString(name) + QStringLiteral("  \u00B7  ") + place;
}

} // namespace

EditorPreview::EditorPreview(EditorControls &controls, StockPictures &pictures,
                             StockFigures &figures, Selected selected, QObject *parent)
    : QObject(parent)
    , m_pictures(pictures)
    , m_figures(figures)
    , m_preview(*controls.preview)
    , m_selected(std::move(selected))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &EditorPreview::follow);
    connectLists(controls);
    connect(&m_figures, &StockFigures::Arrived, &m_timer, [this] { m_timer.start(0); });
    connect(&m_pictures, &StockPictures::PreviewChanged, this, &EditorPreview::showOrHide);
    connect(&m_pictures, &StockPictures::LookedAgain, this, [this] { m_preview.ReadAgain(); });
    showOrHide();
}

void EditorPreview::connectLists(EditorControls &controls)
{
    for (ListView *list : {controls.lvConsist, controls.lvStock}) {
        connect(list, &ListView::Focused, &m_timer, [this] { m_timer.start(0); });
        connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, &m_timer,
                [this] { m_timer.start(0); });
        connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, &m_timer,
                [this] { m_timer.start(0); });
        connect(list->model(), &QAbstractItemModel::modelReset, &m_timer,
                [this] { m_timer.start(0); });
    }
}

void EditorPreview::showOrHide()
{
    m_preview.setVisible(m_pictures.ShowsPreview());
    m_timer.start(0);
}

void EditorPreview::follow()
{
    if (!m_pictures.ShowsPreview())
        return;
    const std::string folder = m_figures.Environment().installation.CurrentFolder();
    const StockItem *item = m_selected();
    if (!item) {
        m_preview.ShowNothing(
            QStringLiteral("Select a vehicle in the train or in the stock list to see it here."));
        return;
    }
    const std::string path = StockPath(folder, *item);
    if (m_figures.Environment().files.FileExists(path))
        m_preview.ShowVehicle(path, nameOf(*item, m_figures));
    else
        m_preview.ShowNothing(
            QStringLiteral("%1 is not installed.")
                .arg(QString::fromStdString(item->folder + " / " +
                                            install::StockFileName(item->type, item->shape))));
}

} // namespace document
