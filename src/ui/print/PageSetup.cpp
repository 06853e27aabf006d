// SPDX-License-Identifier: MIT
#include "ui/print/PageSetup.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>

namespace app {

namespace {

constexpr double kWidestMargin = 60; // millimetres; leaves room on every paper offered

} // namespace

PageSetup::PageSetup(const QPageLayout &layout, QWidget *parent)
    : QDialog(parent)
    , m_layout(layout)
    , cboPaper(new QComboBox(this))
    , cboOrientation(new QComboBox(this))
{
    setObjectName("frmPageSetup");
    setWindowTitle(QStringLiteral("Page Setup"));
    m_layout.setUnits(QPageLayout::Millimeter);
    auto *form = new QFormLayout(this);
    form->setContentsMargins(12, 12, 12, 12);
    form->setSpacing(8);
    addPaper(*form);
    addMargins(*form);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void PageSetup::addPaper(QFormLayout &form)
{
    cboPaper->setObjectName("cboPaper");
    for (const auto id : {QPageSize::A3, QPageSize::A4, QPageSize::A5, QPageSize::Letter,
                          QPageSize::Legal, QPageSize::Tabloid})
        cboPaper->addItem(QPageSize::name(id), static_cast<int>(id));
    const int now = static_cast<int>(m_layout.pageSize().id());
    if (cboPaper->findData(now) < 0)
        cboPaper->addItem(m_layout.pageSize().name(), now);
    cboPaper->setCurrentIndex(cboPaper->findData(now));
    cboOrientation->setObjectName("cboOrientation");
    cboOrientation->addItems({QStringLiteral("Portrait"), QStringLiteral("Landscape")});
    cboOrientation->setCurrentIndex(m_layout.orientation() == QPageLayout::Landscape);
    form.addRow(QStringLiteral("&Paper:"), cboPaper);
    form.addRow(QStringLiteral("O&rientation:"), cboOrientation);
}

void PageSetup::addMargins(QFormLayout &form)
{
    const QMarginsF margins = m_layout.margins();
    const struct
    {
        const char *title, *name;
        double value;
    } rows[] = {{"&Left margin:", "txtLeft", margins.left()},
                {"R&ight margin:", "txtRight", margins.right()},
                {"&Top margin:", "txtTop", margins.top()},
                {"&Bottom margin:", "txtBottom", margins.bottom()}};
    for (std::size_t i = 0; i < txtMargin.size(); ++i) {
        auto *box = new QDoubleSpinBox(this);
        box->setObjectName(rows[i].name);
        box->setDecimals(1);
        box->setRange(0, kWidestMargin);
        box->setSuffix(QStringLiteral(" mm"));
        box->setValue(rows[i].value);
        form.addRow(QString::fromLatin1(rows[i].title), box);
        txtMargin[i] = box;
    }
}

QPageLayout PageSetup::Layout() const
{
    QPageLayout layout = m_layout;
    const auto size = static_cast<QPageSize::PageSizeId>(cboPaper->currentData().toInt());
    if (size != layout.pageSize().id()) // an unchanged custom size keeps its dimensions
        layout.setPageSize(QPageSize(size));
    layout.setOrientation(cboOrientation->currentIndex() == 1 ? QPageLayout::Landscape
                                                              : QPageLayout::Portrait);
    layout.setMargins({txtMargin[0]->value(), txtMargin[2]->value(), txtMargin[1]->value(),
                       txtMargin[3]->value()});
    return layout;
}

} // namespace app
