// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

#include <string>

class QLabel;
class QLineEdit;
class QToolButton;

namespace viewer {

/// A bar across a 3D view with the path of the last screenshot, as text to select and copy, and
/// buttons that open the screenshot or its folder. Hidden before the first screenshot, and after
/// the user has closed it.
class SavedPictureBar : public QFrame
{
    Q_OBJECT

public:
    explicit SavedPictureBar(QWidget *parent = nullptr);

    void ShowPath(const std::string &path);

    QLabel *lblSavedPicture;
    QLineEdit *txtSavedPicture;
    QToolButton *cmdOpenPicture;
    QToolButton *cmdOpenPictureFolder;
    QToolButton *cmdHidePicture;

Q_SIGNALS:
    /// Emitted when the user wants to open this file or folder.
    void OpenWanted(const std::string &path);

private:
    QToolButton *button(const char *caption);
    void nameControls();

    std::string m_path;
};

} // namespace viewer
