// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

#include <string>

class QLabel;
class QLineEdit;
class QToolButton;

namespace viewer {

/// A line across a 3D view that names the picture saved last, as text to select and copy, with
/// buttons to open the picture or its folder. Hidden until there is a picture, and when the user
/// closes it.
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
    /// The user wants to see this file or folder.
    void OpenWanted(const std::string &path);

private:
    QToolButton *button(const char *caption);
    void nameControls();

    std::string m_path;
};

} // namespace viewer
