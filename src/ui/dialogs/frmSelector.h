// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <array>
#include <string>
#include <string_view>

class QCheckBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

/// A modal dialog that lets the user mark any number of entries of a list. An entry is marked by
/// its check box; a double click or the space bar turns it over.
class frmSelector : public QDialog
{
    Q_OBJECT

public:
    explicit frmSelector(QWidget *parent = nullptr);

    /// Fills the list (validation/SelectorEntries.h) and forgets what was chosen before.
    void SelectFrom(std::string_view list);
    /// The marked entries in list order, joined by "|"; "" until they were accepted.
    const std::string &Selected() const { return m_selected; }
    /// Closes the dialog; what was not accepted by then is not chosen.
    void UnloadForm();

    QListWidget *lvItems;
    QCheckBox *chkAll;
    QGroupBox *fraDetails;
    QLabel *lblDetails;
    std::array<QPushButton *, 2> cmdAction{}; ///< 0 accepts, 1 cancels

private:
    void nameControls();
    void arrangeControls();
    void connectControls();
    void showDetail(const QListWidgetItem *item);
    void markAll(bool marked);
    void followMarks();
    void takeMarked();

    std::string m_selected;
};
