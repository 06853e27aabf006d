// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmSelector.h"

#include "ui/widgets/NamedControls.h"
#include "validation/SelectorEntries.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr int kAirInRow = 7; ///< pixels above and below the text of an entry

} // namespace

frmSelector::frmSelector(QWidget *parent)
    : QDialog(parent)
    , lvItems(new QListWidget(this))
    , chkAll(new QCheckBox(QStringLiteral("Select All"), this))
    , fraDetails(new QGroupBox(QStringLiteral("Details"), this))
    , lblDetails(new QLabel(fraDetails))
    , cmdAction{new QPushButton(QStringLiteral("OK"), this),
                new QPushButton(QStringLiteral("Cancel"), this)}
{
    setWindowTitle(QStringLiteral("Select"));
    nameControls();
    arrangeControls();
    connectControls();
}

void frmSelector::nameControls()
{
    setObjectName("frmSelector");
    const install::NamedControl controls[] = {
        {lvItems, "lvItems", "Entries", "Mark the entries that you want"},
        {chkAll, "chkAll", "Select All", "Mark every entry, or none"},
        {fraDetails, "fraDetails", "Details", ""},
        {lblDetails, "lblDetails", "", ""},
        {cmdAction[0], "cmdAction0", "OK", "Go on with the marked entries"},
        {cmdAction[1], "cmdAction1", "Cancel", "Choose nothing"},
    };
    install::NameControls(controls);
}

void frmSelector::arrangeControls()
{
    lvItems->setUniformItemSizes(true);
    lvItems->setAlternatingRowColors(true);
    lblDetails->setTextFormat(Qt::PlainText);
    lblDetails->setWordWrap(true);
    lblDetails->setMinimumHeight(2 * lblDetails->fontMetrics().lineSpacing());
    lblDetails->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    cmdAction[0]->setDefault(true);

    auto *details = new QVBoxLayout(fraDetails);
    details->setContentsMargins(10, 6, 10, 8);
    details->addWidget(lblDetails);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(6);
    buttons->addWidget(chkAll);
    buttons->addStretch(1);
    buttons->addWidget(cmdAction[0]);
    buttons->addWidget(cmdAction[1]);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addWidget(lvItems, 1);
    layout->addWidget(fraDetails);
    layout->addLayout(buttons);
    resize(380, 400);
}

void frmSelector::connectControls()
{
    connect(lvItems, &QListWidget::currentItemChanged, this, &frmSelector::showDetail);
    connect(lvItems, &QListWidget::itemClicked, this, &frmSelector::showDetail);
    connect(lvItems, &QListWidget::itemDoubleClicked, this, [](QListWidgetItem *item) {
        item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
    connect(lvItems, &QListWidget::itemChanged, this, &frmSelector::followMarks);
    // Not `clicked`: screen readers toggle the box without a click.
    connect(chkAll, &QCheckBox::toggled, this, &frmSelector::markAll);
    connect(cmdAction[0], &QPushButton::clicked, this, &frmSelector::takeMarked);
    connect(cmdAction[1], &QPushButton::clicked, this, &frmSelector::UnloadForm);
}

void frmSelector::SelectFrom(std::string_view list)
{
    const QSignalBlocker filling(lvItems);
    m_selected.clear();
    lvItems->clear();
    for (const validation::SelectorEntry &entry : validation::SelectorEntries(list)) {
        auto *item = new QListWidgetItem(QString::fromStdString(entry.text), lvItems);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
        item->setData(Qt::UserRole, QString::fromStdString(entry.detail));
        item->setSizeHint({0, lvItems->fontMetrics().height() + kAirInRow});
    }
    lvItems->setCurrentRow(0);
    showDetail(lvItems->item(0));
    chkAll->setChecked(false);
    chkAll->setEnabled(lvItems->count() > 0);
}

void frmSelector::UnloadForm()
{
    reject();
}

void frmSelector::showDetail(const QListWidgetItem *item)
{
    lblDetails->setText(item ? item->data(Qt::UserRole).toString() : QString());
}

void frmSelector::markAll(bool marked)
{
    {
        const QSignalBlocker marking(lvItems);
        for (int row = 0; row < lvItems->count(); ++row)
            lvItems->item(row)->setCheckState(marked ? Qt::Checked : Qt::Unchecked);
    }
    lvItems->viewport()->update();
}

/// Updates the box from the list: it is checked exactly when every entry is marked.
void frmSelector::followMarks()
{
    const QSignalBlocker following(chkAll);
    int marked = 0;
    for (int row = 0; row < lvItems->count(); ++row)
        marked += lvItems->item(row)->checkState() == Qt::Checked;
    chkAll->setChecked(marked > 0 && marked == lvItems->count());
}

void frmSelector::takeMarked()
{
    m_selected.clear();
    for (int row = 0; row < lvItems->count(); ++row) {
        const QListWidgetItem &item = *lvItems->item(row);
        if (item.checkState() == Qt::Checked)
            m_selected += (m_selected.empty() ? "" : "|") + item.text().toStdString();
    }
    accept();
}
