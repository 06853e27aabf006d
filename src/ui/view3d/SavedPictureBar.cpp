// SPDX-License-Identifier: MIT
#include "ui/view3d/SavedPictureBar.h"

#include "host/Path.h"
#include "ui/widgets/NamedControls.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace viewer {

SavedPictureBar::SavedPictureBar(QWidget *parent)
    : QFrame(parent)
    , lblSavedPicture(new QLabel(QStringLiteral("Picture:"), this))
    , txtSavedPicture(new QLineEdit(this))
    , cmdOpenPicture(button("&Open"))
    , cmdOpenPictureFolder(button("Fol&der"))
    , cmdHidePicture(button("\u00d7"))
{
    nameControls();
    setAutoFillBackground(true);
    setAttribute(Qt::WA_NoMousePropagation); // dragging on the bar must not turn the view
    txtSavedPicture->setReadOnly(true);
    txtSavedPicture->setFrame(false);
    txtSavedPicture->setMinimumWidth(40);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 2, 2);
    layout->setSpacing(4);
    layout->addWidget(lblSavedPicture);
    layout->addWidget(txtSavedPicture, 1);
    layout->addWidget(cmdOpenPicture);
    layout->addWidget(cmdOpenPictureFolder);
    layout->addWidget(cmdHidePicture);
    hide();
    connect(cmdOpenPicture, &QToolButton::clicked, this, [this] { Q_EMIT OpenWanted(m_path); });
    connect(cmdOpenPictureFolder, &QToolButton::clicked, this,
            [this] { Q_EMIT OpenWanted(std::string(host::path::FolderWithSeparator(m_path))); });
    connect(cmdHidePicture, &QToolButton::clicked, this, &QWidget::hide);
}

QToolButton *SavedPictureBar::button(const char *caption)
{
    auto *made = new QToolButton(this);
    made->setText(QString::fromUtf8(caption));
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::TabFocus);
    return made;
}

void SavedPictureBar::nameControls()
{
    const install::NamedControl controls[] = {
        {lblSavedPicture, "lblSavedPicture", "", ""},
        {txtSavedPicture, "txtSavedPicture", "Saved picture", "Where the picture was saved"},
        {cmdOpenPicture, "cmdOpenPicture", "Open picture", "Open the saved picture"},
        {cmdOpenPictureFolder, "cmdOpenPictureFolder", "Open pictures folder",
         "Open the folder of the saved picture"},
        {cmdHidePicture, "cmdHidePicture", "Hide this line", "Hide this line"},
    };
    setObjectName("savedPictureBar");
    setAccessibleName(QStringLiteral("Saved picture"));
    install::NameControls(controls);
}

void SavedPictureBar::ShowPath(const std::string &path)
{
    m_path = path;
    const QString text = QString::fromStdString(path);
    txtSavedPicture->setText(text); // the cursor is at the end, so that the file's name is visible
    txtSavedPicture->setToolTip(text);
    setAccessibleName(QStringLiteral("Picture saved as ") + text);
    show();
    raise();
    QAccessibleEvent saved(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&saved);
}

} // namespace viewer
