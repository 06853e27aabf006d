// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <string>

class QComboBox;
class QFileSystemModel;
class QLabel;
class QLineEdit;
class QModelIndex;
class QPushButton;
class QTreeView;

namespace host {
class GameFiles;
}

/// The dialog of File > Set MSTS Location.
class frmSetLoc : public QDialog
{
    Q_OBJECT

public:
    explicit frmSetLoc(host::GameFiles &files, QWidget *parent = nullptr);

    /// Shows this folder: its volume in the drive list, the folder itself in the tree and the text
    /// box. A folder that does not exist appears only in the text box.
    void SetLocation(const std::string &path);

    bool Cancelled = true;
    std::string Location; ///< the user's choice; "$MSTS" for the registered folder

    QComboBox *drvLocation;
    QTreeView *dirLocation;
    QLineEdit *txtLocation;
    QPushButton *cmdSetDefault;
    QPushButton *OKButton;
    QPushButton *CancelButton;
    QLabel *lblHint; ///< what is wrong with the folder in the text box, if anything

private:
    void nameControls();
    void keepChosenInView();
    void arrangeControls();
    void fillDrives();
    void selectDrive(const std::string &folder);
    void showDrive(int index);
    void showChosenFolder(const QModelIndex &index);
    void takeLocation();
    void showHint();

    host::GameFiles &m_files;
    QFileSystemModel *m_folders;
    bool m_settingLocation = false;
    bool m_userHasChosen = false; ///< in the tree, since the last SetLocation
};
