// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

/// A window with diagnostic facts to read and copy, for bug reports.
class frmSystemInfo : public QDialog
{
    Q_OBJECT

public:
    explicit frmSystemInfo(const QString &facts, QWidget *parent = nullptr);

    QPlainTextEdit *txtFacts;
    QPushButton *cmdCopy;
    QPushButton *cmdClose;
};
