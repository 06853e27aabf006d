// SPDX-License-Identifier: MIT
#include "ui/document/FigureColumns.h"

#include "ui/widgets/ListView.h"

#include <QHeaderView>
#include <QMenu>
#include <QShortcut>

#include <algorithm>

namespace document {

namespace {

using content::FactColumn;

constexpr int kNarrowest = 40, kWidest = 10000; // far beyond any screen

/// Texts as wide as those of real vehicles.
constexpr const char *kSamples[content::kFactColumns] = {
    "A vehicle with a name", "88.8 m", "888.8 t-us", "8,888 kW", "188.8 km/h", "Automatic",
    "Air_single_pipe"};

} // namespace

FigureColumns::FigureColumns(ListView &list, const FigureCells &cells, Show show, int ownColumns,
                             std::vector<ShownFigure> *layout, QObject *parent)
    : QObject(parent)
    , m_list(list)
    , m_cells(cells)
    , m_show(std::move(show))
    , m_ownColumns(ownColumns)
    , m_layout(layout)
{
    m_list.ShareAmongFirst(ownColumns);
    if (m_layout)
        showKept(*m_layout);
    QHeaderView *header = m_list.header();
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::customContextMenuRequested, this,
            [this, header](const QPoint &at) { popUpMenu(header->mapToGlobal(at)); });
    auto *key = new QShortcut(Qt::CTRL | Qt::Key_0, &m_list);
    key->setContext(Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this,
            [this, header] { popUpMenu(header->mapToGlobal(header->rect().bottomLeft())); });
    connect(&m_list, &ListView::ColumnSized, this, &FigureColumns::keep);
}

/// Ignores columns of another version.
void FigureColumns::showKept(const std::vector<ShownFigure> &kept)
{
    for (const ShownFigure &each : std::vector<ShownFigure>(kept))
        if (each.column >= 0 && each.column < content::kFactColumns)
            set(static_cast<FactColumn>(each.column), true,
                each.width >= kNarrowest && each.width <= kWidest
                    ? each.width
                    : usualWidth(static_cast<FactColumn>(each.column)));
}

void FigureColumns::popUpMenu(const QPoint &globalPosition)
{
    auto *menu = new QMenu(&m_list);
    menu->setObjectName("mnuColumns");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int i = 0; i < content::kFactColumns; ++i) {
        const auto column = static_cast<FactColumn>(i);
        QAction *action = menu->addAction(QString::fromLatin1(content::FactTitle(column)));
        action->setCheckable(true);
        action->setChecked(m_cells.IsShown(column));
        connect(action, &QAction::toggled, this, [this, column](bool show) {
            set(column, show, usualWidth(column));
            keep();
            Q_EMIT Changed();
        });
    }
    if (!m_choices.empty())
        menu->addSeparator();
    for (QAction *choice : m_choices)
        menu->addAction(choice);
    menu->popup(globalPosition);
}

void FigureColumns::set(FactColumn column, bool show, int width)
{
    const std::vector<int> selected = m_list.SelectedRows();
    m_show(column, show);
    if (show)
        m_list.SizeFixedColumn(m_ownColumns + m_cells.PlaceOf(column), width);
    else
        m_list.ShareWidth();
    m_list.SelectMore(selected); // the selection does not extend to new columns by itself
}

int FigureColumns::usualWidth(FactColumn column) const
{
    constexpr int margins = 16, sortMark = 14;
    const QFontMetrics metrics = m_list.fontMetrics();
    return margins +
           std::max(metrics.horizontalAdvance(QLatin1String(kSamples[static_cast<int>(column)])),
                    metrics.horizontalAdvance(QLatin1String(content::FactTitle(column))) +
                        sortMark);
}

void FigureColumns::keep()
{
    if (!m_layout)
        return;
    m_layout->clear();
    for (const FactColumn column : m_cells.Shown())
        m_layout->push_back({static_cast<int>(column),
                             m_list.header()->sectionSize(m_ownColumns + m_cells.PlaceOf(column))});
}

void FigureColumns::Refresh()
{
    if (!m_cells.Shown().empty())
        m_list.viewport()->update();
}

} // namespace document
