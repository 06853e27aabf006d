// SPDX-License-Identifier: MIT
#include "ui/replace/VehiclePicker.h"

#include "ui/widgets/ListView.h"
#include "ui/widgets/SearchField.h"

#include <QLabel>
#include <QLocale>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <utility>

using document::ListView;
using document::SearchField;

namespace replace {
namespace {

QString withoutMnemonic(QString text)
{
    return text.remove(QLatin1Char('&'));
}

} // namespace

VehiclePicker::VehiclePicker(const Texts &texts, const QIcon &missing, QWidget *parent)
    : QWidget(parent)
    , list(new ListView((std::string("lv") + texts.name).c_str(), withoutMnemonic(texts.heading),
                        this))
    , search(new SearchField((std::string("search") + texts.name).c_str(), texts.search, this))
    , m_heading(new QLabel(texts.heading, this))
    , m_model(new PickerModel(texts.remark, missing, this))
{
    m_heading->setBuddy(list);
    search->setFocusPolicy(Qt::StrongFocus);
    list->setModel(m_model);
    list->SetSearchColumn(1);
    list->setMinimumHeight(list->fontMetrics().height() * 5);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_heading);
    layout->addWidget(search);
    layout->addWidget(list, 1);
    setFocusProxy(list);
    connectControls();
}

void VehiclePicker::connectControls()
{
    connect(search, &QLineEdit::textChanged, this, &VehiclePicker::searchFor);
    connect(search, &SearchField::DownPressed, this, &VehiclePicker::Enter);
    connect(search, &SearchField::ReturnPressed, this, &VehiclePicker::Enter);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &VehiclePicker::takeSelection);
    connect(list, &ListView::ReturnPressed, this, &VehiclePicker::Chosen);
    connect(list, &ListView::doubleClicked, this, &VehiclePicker::Chosen);
}

void VehiclePicker::SetVehicles(std::vector<VehicleRow> vehicles)
{
    const std::optional<install::StockItem> before = m_picked;
    {
        const QScopedValueRollback<bool> filling(m_filling, true);
        m_model->SetVehicles(std::move(vehicles));
        list->SelectRow(before ? m_model->RowOf(*before) : -1);
    }
    showCount();
    takeSelection();
}

void VehiclePicker::Pick(const std::optional<install::StockItem> &vehicle)
{
    if (!search->text().isEmpty() && vehicle && m_model->RowOf(*vehicle) < 0)
        search->clear();
    list->SelectRow(vehicle ? m_model->RowOf(*vehicle) : -1);
}

bool VehiclePicker::PickedIsMissing() const
{
    const int row = m_picked ? m_model->RowOf(*m_picked) : -1;
    return row >= 0 && m_model->At(row).isMissing;
}

void VehiclePicker::SetHint(const QString &hint)
{
    list->SetHint(hint);
}

void VehiclePicker::FocusSearch()
{
    search->setFocus(Qt::ShortcutFocusReason);
    search->selectAll();
}

void VehiclePicker::Enter()
{
    if (m_model->rowCount() > 0 && list->SelectedRow() < 0)
        list->SelectRow(0);
    list->setFocus(Qt::TabFocusReason);
}

/// A vehicle that the search hides stays picked only if it is shown again at once.
void VehiclePicker::searchFor(const QString &words)
{
    const std::optional<install::StockItem> before = m_picked;
    {
        const QScopedValueRollback<bool> filling(m_filling, true);
        m_model->Search(words.toStdString());
        list->SelectRow(before ? m_model->RowOf(*before) : -1);
    }
    list->SetNothingFoundHint(m_model->VehicleCount() > 0 && m_model->rowCount() == 0
                                  ? QStringLiteral("No vehicle matches the search")
                                  : QString());
    showCount();
    takeSelection();
}

void VehiclePicker::showCount()
{
    search->SetRemark(search->text().isEmpty()
                          ? QString()
                          : QStringLiteral("%1 of %2")
                                .arg(QLocale().toString(m_model->rowCount()),
                                     QLocale().toString(m_model->VehicleCount())));
}

void VehiclePicker::takeSelection()
{
    if (m_filling)
        return;
    const int row = list->SelectedRow();
    const std::optional<install::StockItem> now =
        row < 0 ? std::nullopt : std::optional(m_model->At(row).vehicle);
    if (now == m_picked)
        return;
    m_picked = now;
    Q_EMIT Picked();
}

} // namespace replace
