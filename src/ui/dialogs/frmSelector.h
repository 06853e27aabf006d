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

/// A modal dialog that lets the user mark any number of entries of a list. A click on its check
/// box, a double click or the space bar marks or unmarks an entry.
class frmSelector : public QDialog
{
    Q_OBJECT

public:
    explicit frmSelector(QWidget *parent = nullptr);

    /// Fills the list (validation/SelectorEntries.h describes it) and forgets the earlier choice.
    void SelectFrom(std::string_view list);
    /// Returns the marked entries in list order, joined by "|"; "" unless the user accepted them.
    const std::string &Selected() const { return m_selected; }
    /// Closes the dialog. Entries that have not been accepted are not chosen.
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
