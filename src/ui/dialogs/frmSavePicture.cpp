// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmSavePicture.h"

#include "ui/widgets/NamedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr struct
{
    int width, height;
    const char *name;
} kSizes[] = {{1280, 720, "HD"},      {1920, 1080, "Full HD"}, {2560, 1440, "Quad HD"},
              {3840, 2160, "4K"},     {7680, 4320, "8K"},      {1024, 1024, "square"},
              {2048, 2048, "square"}, {4096, 4096, "square"}};

QString captionOf(const QSize &size, const QString &name)
{
    return QStringLiteral("%1 \u00d7 %2 (%3)").arg(size.width()).arg(size.height()).arg(name);
}

} // namespace

frmSavePicture::frmSavePicture(const QSize &shown, QWidget *parent)
    : QDialog(parent)
    , lblSize(new QLabel(QStringLiteral("&Size in pixels:"), this))
    , cboSize(new QComboBox(this))
    , chkTransparent(
          new QCheckBox(QStringLiteral("&Transparent background, without ground and track"), this))
    , OKButton(new QPushButton(QStringLiteral("Save..."), this))
    , CancelButton(new QPushButton(QStringLiteral("Cancel"), this))
{
    setObjectName("frmSavePicture");
    setWindowTitle(QStringLiteral("Save Picture As"));
    cboSize->addItem(captionOf(shown, QStringLiteral("as in the window")), shown);
    for (const auto &size : kSizes)
        cboSize->addItem(captionOf({size.width, size.height}, QString::fromLatin1(size.name)),
                         QSize(size.width, size.height));
    nameControls();
    arrangeControls();
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

void frmSavePicture::nameControls()
{
    const install::NamedControl controls[] = {
        {lblSize, "lblSize", "", ""},
        {cboSize, "cboSize", "Size in pixels", "The size of the picture"},
        {chkTransparent, "chkTransparent", "Transparent background",
         "Draw only the vehicles, for use over other pictures"},
        {OKButton, "OKButton", "Save", "Choose the file and save the picture"},
        {CancelButton, "CancelButton", "Cancel", "Save nothing"},
    };
    install::NameControls(controls);
}

void frmSavePicture::arrangeControls()
{
    lblSize->setBuddy(cboSize);
    OKButton->setDefault(true);
    auto *size = new QHBoxLayout;
    size->addWidget(lblSize);
    size->addWidget(cboSize, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(OKButton);
    buttons->addWidget(CancelButton);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(size);
    layout->addWidget(chkTransparent);
    layout->addSpacing(8);
    layout->addLayout(buttons);
}

void frmSavePicture::ChooseSize(const QSize &size)
{
    cboSize->setCurrentIndex(std::max(0, cboSize->findData(size)));
}

void frmSavePicture::ChooseTransparent(bool transparent)
{
    chkTransparent->setChecked(transparent);
}

QSize frmSavePicture::Size() const
{
    return cboSize->currentData().toSize();
}

bool frmSavePicture::Transparent() const
{
    return chkTransparent->isChecked();
}

bool frmSavePicture::IsShownSize() const
{
    return cboSize->currentIndex() == 0;
}
