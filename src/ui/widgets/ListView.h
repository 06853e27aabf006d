// SPDX-License-Identifier: MIT
#pragma once

#include <QTreeView>

#include <vector>

class QPushButton;

namespace document {

/// A list in report style: whole rows of equal height, no tree lines. Columns share the list's
/// width until the user drags one; a single column always follows it. Typing searches in the search
/// column.
class ListView : public QTreeView
{
    Q_OBJECT

public:
    /// `name` is the control's fixed name, `title` its name for screen readers.
    ListView(const char *name, const QString &title, QWidget *parent = nullptr);

    /// Returns the selected row, counted from 0; -1 for none. If several are selected, prefers the
    /// current row, else the uppermost one.
    int SelectedRow() const;
    /// Returns all selected rows, from the first to the last.
    std::vector<int> SelectedRows() const;
    /// Selects only this row and scrolls to it; -1 selects nothing.
    void SelectRow(int row);
    /// Selects these rows too. The current row stays.
    void SelectMore(const std::vector<int> &rows);

    /// Gives a single column the width of the list again.
    void ResetOnlyColumn();
    void SetSearchColumn(int column) { m_searchColumn = column; }
    /// Makes the first column just wide enough for this text; the others share the rest. If it is
    /// never called, all columns have the same width.
    void FitFirstColumn(const QString &widest);

    /// Lets only the first columns share the list's width, each with a minimum; the columns behind
    /// them keep their widths.
    void ShareAmongFirst(int columns) { m_sharingColumns = columns; }
    /// Gives the columns their shares of the list's width, unless the user has resized one.
    void ShareWidth();
    /// Sets the width of a column that does not share the list's width.
    void SizeFixedColumn(int column, int width);

    /// Sets the columns to these widths, as if the user had dragged them. Does nothing unless there
    /// is a usable width for each column.
    void SizeColumns(const std::vector<int> &widths);
    std::vector<int> ColumnWidths() const;

    /// The role of the pictures (QPixmap) in the first column.
    static constexpr int kPictureRole = Qt::UserRole + 1;
    /// Makes room for pictures of this size, in logical pixels, at the left of the rows; an empty
    /// size removes it. The widths of columns above do not include it.
    void SetPictureSize(const QSize &size);
    const QSize &PictureSize() const { return m_pictureSize; }

    /// Sets a text for the user that is shown while the list is empty. `withButton` shows the hint
    /// button below it.
    void SetHint(const QString &hint, bool withButton = false);
    /// Adds a button for SetHint. It is a child of the list's parent, since screen readers find
    /// only rows in a list.
    QPushButton &AddHintButton(const char *name, const QString &caption);
    /// Sets a text that is shown instead while a search hides all rows; "" if it does not.
    void SetNothingFoundHint(const QString &hint);
    /// Returns the text that the list shows instead of rows; "" if there are rows.
    QString Hint() const;

    QSize sizeHint() const override { return {260, 260}; }
    QSize minimumSizeHint() const override { return {140, 80}; }
    void keyboardSearch(const QString &search) override;
    void setModel(QAbstractItemModel *model) override;

Q_SIGNALS:
    void Focused();
    /// Emitted when something other than keys, mouse and program has selected rows: a screen reader
    /// or another assistive program, which does not move the focus into the list.
    void SelectedFromOutside();
    /// Emitted when the user has resized a column.
    void ColumnSized();
    void ReturnPressed(Qt::KeyboardModifiers modifiers);
    void InsertPressed();
    void DeletePressed(Qt::KeyboardModifiers modifiers);
    void LeftPressed();
    void LeftReleased();
    /// Emitted when the right button is released, or the menu key pressed, at this position.
    void MenuWanted(const QPoint &globalPosition);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void selectionChanged(const QItemSelection &selected,
                          const QItemSelection &deselected) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showHint();
    void placeHintButton();
    int pictureWidth() const;

    QPushButton *m_hintButton = nullptr;
    QSize m_pictureSize;
    QString m_hint, m_nothingFoundHint;
    int m_firstWidth = 0, m_searchColumn = 0, m_sharingColumns = 0;
    bool m_sharing = false, m_sizedByUser = false, m_selecting = false, m_hintHasButton = false;
};

} // namespace document
