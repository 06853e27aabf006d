// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QIcon>

#include <functional>

class QPushButton;
class QTreeWidget;

/// The About box: what the program is, its version and those before it.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    /// `showSystemInfo` is what the System Info button does.
    frmAbout(const QIcon &icon, const std::function<void(QWidget &about)> &showSystemInfo,
             QWidget *parent = nullptr);

    QTreeWidget *lvHistory;
    QPushButton *cmdSysInfo;
    QPushButton *cmdOK;

private:
    QWidget *heading(const QIcon &icon);
    void fillHistory();
};
