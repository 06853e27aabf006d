// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QSize>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

/// The dialog for the size and the background of a picture of a 3D view.
class frmSavePicture : public QDialog
{
    Q_OBJECT

public:
    /// `shown` is the size of the view's own picture, the first choice.
    explicit frmSavePicture(const QSize &shown, QWidget *parent = nullptr);

    /// Choose what the dialog shows at first. A size that is not in the list chooses the view's.
    void ChooseSize(const QSize &size);
    void ChooseTransparent(bool transparent);
    QSize Size() const;
    bool Transparent() const;
    /// True if the chosen size is that of the view.
    bool IsShownSize() const;

    QLabel *lblSize;
    QComboBox *cboSize;
    QCheckBox *chkTransparent;
    QPushButton *OKButton;
    QPushButton *CancelButton;

private:
    void nameControls();
    void arrangeControls();
};
