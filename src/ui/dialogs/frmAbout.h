// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QIcon>

#include <functional>

class QPushButton;
class QTreeWidget;

/// The About box: the program, its version and its history.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    /// The System Info button calls `showSystemInfo`.
    frmAbout(const QIcon &icon, const std::function<void(QWidget &about)> &showSystemInfo,
             QWidget *parent = nullptr);

    QTreeWidget *lvHistory;
    QPushButton *cmdSysInfo;
    QPushButton *cmdOK;

private:
    QWidget *heading(const QIcon &icon);
    void fillHistory();
};
