// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

/// A window with facts to read and to copy, for a report of what does not work.
class frmSystemInfo : public QDialog
{
    Q_OBJECT

public:
    explicit frmSystemInfo(const QString &facts, QWidget *parent = nullptr);

    QPlainTextEdit *txtFacts;
    QPushButton *cmdCopy;
    QPushButton *cmdClose;
};
