// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeView>

#include <vector>

namespace document {

/// A list in report style: whole rows, no tree lines, rows of one height. Columns share the list's
/// width until the user drags one; an only column always follows it. Typing searches in the search
/// column.
class ListView : public QTreeView
{
    Q_OBJECT

public:
    /// `name` is the control's fixed name, `title` what a screen reader calls it.
    ListView(const char *name, const QString &title, QWidget *parent = nullptr);

    /// The selected row, counted from 0; -1 for none. Of several, the current one if it is
    /// selected, else the uppermost.
    int SelectedRow() const;
    /// All selected rows, from the first to the last.
    std::vector<int> SelectedRows() const;
    /// Selects this row alone and scrolls to it; -1 selects nothing.
    void SelectRow(int row);

    /// Gives an only column the list's width again.
    void ResetOnlyColumn();
    void SetSearchColumn(int column) { m_searchColumn = column; }
    /// Makes the first column just wide enough for this text; the others share the rest. Without
    /// it all columns share alike.
    void FitFirstColumn(const QString &widest);

    /// Gives the columns these widths, as if the user had sized them. Does nothing unless there is
    /// a useful width for each column.
    void SizeColumns(const std::vector<int> &widths);
    std::vector<int> ColumnWidths() const;

    /// A text for the user that stands in the list as long as it is empty.
    void SetHint(const QString &hint);
    const QString &Hint() const { return m_hint; }

    QSize sizeHint() const override { return {260, 260}; }
    QSize minimumSizeHint() const override { return {140, 80}; }
    void keyboardSearch(const QString &search) override;

Q_SIGNALS:
    void Focused();
    /// The user has sized a column.
    void ColumnSized();
    void ReturnPressed(Qt::KeyboardModifiers modifiers);
    void InsertPressed();
    void DeletePressed(Qt::KeyboardModifiers modifiers);
    void LeftPressed();
    void LeftReleased();
    /// The right button was released, or the menu key pressed, here.
    void MenuWanted(const QPoint &globalPosition);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void shareWidth();

    QString m_hint;
    int m_firstWidth = 0, m_searchColumn = 0;
    bool m_sharing = false, m_sizedByUser = false;
};

} // namespace document
