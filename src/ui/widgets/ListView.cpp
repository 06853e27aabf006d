// SPDX-License-Identifier: MIT
#include "ui/widgets/ListView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QTextOption>
#include <QToolTip>

#include <algorithm>

namespace document {

namespace {

/// Returns the icon in one colour, whatever the state of the row is.
QIcon inColour(const QIcon &icon, const QSize &size, const QColor &colour, qreal pixelRatio)
{
    QPixmap drawn = icon.pixmap(size, pixelRatio);
    QPainter painter(&drawn);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRect(QPoint(), size), colour);
    painter.end();
    QIcon coloured;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected})
        coloured.addPixmap(drawn, mode);
    return coloured;
}

/// Draws rows with some space above and below the text, and icons on the right in the colour of the
/// text. A tool tip shows a text that its column cuts off, and the remark about the row.
class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    static constexpr int kIconGap = 6;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        const int icon = row.icon.isNull() ? 0 : row.decorationSize.width() + kIconGap;
        row.features &= ~QStyleOptionViewItem::HasDecoration; // rows keep their height
        const QStyle *const style = row.widget ? row.widget->style() : QApplication::style();
        const QSize text =
            style->sizeFromContents(QStyle::CT_ItemViewItem, &row, QSize(), row.widget);
        const int picture = pictureSizeIn(row, index).height();
        return {text.width() + icon, std::max(text.height() + 5, picture > 0 ? picture + 4 : 0)};
    }

    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override
    {
        const QString text = index.data().toString(),
                      remark = index.data(Qt::ToolTipRole).toString();
        const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
        if (event->type() != QEvent::ToolTip || (!isCut && remark.isEmpty()))
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        // As rich text, a long remark is wrapped, and no name in it is taken for markup.
        const QString shown = isCut ? text + QStringLiteral("\n\n") + remark : remark;
        QToolTip::showText(
            event->globalPos(),
            remark.isEmpty() ? text : Qt::convertFromPlainText(shown, Qt::WhiteSpaceNormal), view);
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (const QSize picture = pictureSizeIn(*option, index); !picture.isEmpty()) {
            option->features |= QStyleOptionViewItem::HasDecoration;
            option->decorationSize = picture;
            option->icon = pictureIn(index, picture);
            return;
        }
        if (option->icon.isNull())
            return;
        const int side = std::min(16, option->fontMetrics.height());
        const auto group = !(option->state & QStyle::State_Enabled) ? QPalette::Disabled
                           : (option->state & QStyle::State_Active) ? QPalette::Active
                                                                    : QPalette::Inactive;
        const auto role =
            option->state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text;
        option->decorationPosition = QStyleOptionViewItem::Right;
        option->decorationSize = {side, side};
        option->icon =
            inColour(option->icon, option->decorationSize, option->palette.color(group, role),
                     option->widget ? option->widget->devicePixelRatioF() : 1);
    }

private:
    /// Returns the size of the picture in a cell; empty in a cell without a place for one.
    static QSize pictureSizeIn(const QStyleOptionViewItem &option, const QModelIndex &index)
    {
        const auto *list = qobject_cast<const ListView *>(option.widget);
        return list && index.column() == 0 ? list->PictureSize() : QSize();
    }
    /// Returns the picture of a row, the same for every state of it; an empty one until it is
    /// known.
    static QIcon pictureIn(const QModelIndex &index, const QSize &size)
    {
        auto picture = index.data(ListView::kPictureRole).value<QPixmap>();
        if (picture.isNull()) {
            picture = QPixmap(size);
            picture.fill(Qt::transparent);
        }
        QIcon icon;
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
            icon.addPixmap(picture, mode);
        return icon;
    }
};

bool isNavigation(int key)
{
    return key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_Up || key == Qt::Key_Down ||
           key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

} // namespace

ListView::ListView(const char *name, const QString &title, QWidget *parent)
    : QTreeView(parent)
{
    setObjectName(name);
    setAccessibleName(title);
    setAccessibleDescription(QString::fromLatin1(name));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(40);
    setItemDelegate(new RowDelegate(this));
    connect(header(), &QHeaderView::sectionResized, this, [this] {
        if (m_sharing)
            return;
        m_sizedByUser = true;
        Q_EMIT ColumnSized();
    });
}

int ListView::SelectedRow() const
{
    if (!selectionModel())
        return -1;
    if (const QModelIndex current = currentIndex();
        current.isValid() && selectionModel()->isRowSelected(current.row()))
        return current.row();
    const std::vector<int> rows = SelectedRows();
    return rows.empty() ? -1 : rows.front();
}

std::vector<int> ListView::SelectedRows() const
{
    std::vector<int> rows;
    if (!selectionModel())
        return rows;
    for (const QItemSelectionRange &range : selectionModel()->selection())
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void ListView::SelectRow(int row)
{
    const QScopedValueRollback<bool> selecting(m_selecting, true);
    if (row < 0 || row >= model()->rowCount()) {
        selectionModel()->clear();
        return;
    }
    const QModelIndex index = model()->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    scrollTo(index);
}

void ListView::SelectMore(const std::vector<int> &rows)
{
    const QScopedValueRollback<bool> selecting(m_selecting, true);
    QItemSelection selection;
    for (const int row : rows)
        selection.select(model()->index(row, 0), model()->index(row, 0));
    selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void ListView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (!m_selecting && !hasFocus() && !selected.isEmpty())
        Q_EMIT SelectedFromOutside();
}

void ListView::ResetOnlyColumn()
{
    if (header()->count() == 1)
        ShareWidth();
}

void ListView::FitFirstColumn(const QString &widest)
{
    m_firstWidth = fontMetrics().horizontalAdvance(widest) + 16;
    ShareWidth();
}

int ListView::pictureWidth() const
{
    return m_pictureSize.isEmpty() ? 0 : m_pictureSize.width() + RowDelegate::kIconGap;
}

void ListView::SetPictureSize(const QSize &size)
{
    if (size == m_pictureSize)
        return;
    const int before = pictureWidth();
    m_pictureSize = size;
    if (m_sizedByUser && header()->count() > 1) {
        const QScopedValueRollback<bool> sharing(m_sharing, true);
        header()->resizeSection(0, header()->sectionSize(0) + pictureWidth() - before);
    }
    ShareWidth();
    scheduleDelayedItemsLayout();
}

void ListView::SizeColumns(const std::vector<int> &widths)
{
    constexpr int widest = 10000; // far beyond any screen
    const bool useful = std::all_of(widths.begin(), widths.end(), [this](int width) {
        return width >= header()->minimumSectionSize() && width <= widest;
    });
    if (!useful || static_cast<int>(widths.size()) != header()->count())
        return;
    const QScopedValueRollback<bool> sharing(m_sharing, true);
    for (int column = 0; column < header()->count(); ++column)
        header()->resizeSection(column, widths[static_cast<std::size_t>(column)] +
                                            (column == 0 ? pictureWidth() : 0));
    m_sizedByUser = true;
}

void ListView::SizeFixedColumn(int column, int width)
{
    {
        const QScopedValueRollback<bool> sharing(m_sharing, true);
        header()->resizeSection(column, width);
    }
    ShareWidth();
}

std::vector<int> ListView::ColumnWidths() const
{
    std::vector<int> widths;
    for (int column = 0; column < header()->count(); ++column)
        widths.push_back(header()->sectionSize(column) - (column == 0 ? pictureWidth() : 0));
    return widths;
}

void ListView::keyboardSearch(const QString &search)
{
    // The base class searches the column of the current item, which follows the mouse.
    if (const QModelIndex current = currentIndex();
        current.isValid() && current.column() != m_searchColumn)
        selectionModel()->setCurrentIndex(current.siblingAtColumn(m_searchColumn),
                                          QItemSelectionModel::NoUpdate);
    else if (!current.isValid() && model()->rowCount() > 0)
        selectionModel()->setCurrentIndex(model()->index(0, m_searchColumn),
                                          QItemSelectionModel::NoUpdate);
    QTreeView::keyboardSearch(search);
}

void ListView::keyPressEvent(QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT ReturnPressed(modifiers);
        break;
    case Qt::Key_Insert:
        Q_EMIT InsertPressed();
        break;
    case Qt::Key_Delete:
        Q_EMIT DeletePressed(modifiers);
        break;
    default:
        QTreeView::keyPressEvent(event);
        if (const QModelIndex current = currentIndex();
            current.isValid() && isNavigation(event->key()) && modifiers == Qt::NoModifier &&
            !selectionModel()->hasSelection())
            SelectRow(current.row()); // the first row has the focus without being selected
    }
}

void ListView::focusInEvent(QFocusEvent *event)
{
    QTreeView::focusInEvent(event);
    update();
    Q_EMIT Focused();
}

void ListView::focusOutEvent(QFocusEvent *event)
{
    QTreeView::focusOutEvent(event);
    update();
}

/// Draws the frame of a list with the focus in the colour of selections, as text fields do: a list
/// without a selected row would hardly show its focus.
bool ListView::event(QEvent *event)
{
    const bool isHandled = QTreeView::event(event);
    if (event->type() == QEvent::Paint && hasFocus() && frameWidth() > 0) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    return isHandled;
}

void ListView::mousePressEvent(QMouseEvent *event)
{
    QTreeView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT LeftPressed();
}

void ListView::mouseReleaseEvent(QMouseEvent *event)
{
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT LeftReleased();
    else if (event->button() == Qt::RightButton)
        Q_EMIT MenuWanted(event->globalPosition().toPoint());
}

/// Only the left button opens a row; in the base class, every button does.
void ListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        QTreeView::mouseDoubleClickEvent(event);
}

void ListView::contextMenuEvent(QContextMenuEvent *event)
{
    // With the mouse, the menu opens when the button is released, whatever the desktop's
    // convention.
    if (event->reason() == QContextMenuEvent::Keyboard)
        Q_EMIT MenuWanted(event->globalPos());
    event->accept();
}

void ListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    ShareWidth();
    placeHintButton();
}

void ListView::moveEvent(QMoveEvent *event)
{
    QTreeView::moveEvent(event);
    placeHintButton();
}

void ListView::setModel(QAbstractItemModel *model)
{
    QTreeView::setModel(model);
    connect(model, &QAbstractItemModel::modelReset, this, &ListView::showHint);
    connect(model, &QAbstractItemModel::layoutChanged, this, &ListView::showHint);
    connect(model, &QAbstractItemModel::rowsInserted, this, &ListView::showHint);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &ListView::showHint);
}

void ListView::SetHint(const QString &hint, bool withButton)
{
    m_hint = hint;
    m_hintHasButton = withButton;
    showHint();
}

void ListView::SetNothingFoundHint(const QString &hint)
{
    m_nothingFoundHint = hint;
    showHint();
}

QString ListView::Hint() const
{
    if (!model() || model()->rowCount() > 0)
        return {};
    return m_nothingFoundHint.isEmpty() ? m_hint : m_nothingFoundHint;
}

QPushButton &ListView::AddHintButton(const char *name, const QString &caption)
{
    m_hintButton = new QPushButton(caption, parentWidget());
    m_hintButton->setObjectName(name);
    m_hintButton->setAutoDefault(true); // Enter presses it
    showHint();
    return *m_hintButton;
}

void ListView::showHint()
{
    const QString hint = Hint();
    setAccessibleDescription(
        hint.isEmpty() ? objectName() : objectName() + QStringLiteral(". ") + hint.simplified());
    if (m_hintButton) {
        const bool isShown = m_hintHasButton && !hint.isEmpty() && m_nothingFoundHint.isEmpty();
        if (!isShown && m_hintButton->hasFocus())
            setFocus();
        m_hintButton->setVisible(isShown);
        placeHintButton();
    }
    viewport()->update();
}

/// Places the button below the middle of the list, or at its lower edge if there is little room.
void ListView::placeHintButton()
{
    if (!m_hintButton)
        return;
    constexpr int belowMiddle = 24, margin = 8;
    const QRect area(viewport()->mapTo(parentWidget(), QPoint()), viewport()->size());
    const QSize size = m_hintButton->sizeHint().boundedTo(area.size());
    const int top =
        std::min(area.center().y() + belowMiddle, area.bottom() - margin - size.height());
    m_hintButton->setGeometry(area.center().x() - size.width() / 2, top, size.width(),
                              size.height());
    m_hintButton->raise();
}

void ListView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    const QString hint = Hint();
    if (hint.isEmpty())
        return;
    constexpr int air = 16;
    QRect area = viewport()->rect().adjusted(air, air, -air, -air);
    const bool hasButton = m_hintButton && m_hintButton->isVisible();
    if (hasButton)
        area.setBottom(viewport()->mapFrom(parentWidget(), m_hintButton->pos()).y() - air);
    QTextOption option(hasButton ? Qt::AlignHCenter | Qt::AlignBottom : Qt::AlignCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(area, hint, option);
}

void ListView::ShareWidth()
{
    const int columns = header()->count();
    if (columns == 0 || (m_sizedByUser && columns > 1))
        return;
    const QScopedValueRollback<bool> sharing(m_sharing, true);
    constexpr int narrowest = 90; // beside columns that keep their widths
    const int shared = m_sharingColumns > 0 ? std::min(m_sharingColumns, columns) : columns;
    int left = viewport()->width();
    for (int column = shared; column < columns; ++column)
        left -= header()->sectionSize(column);
    for (int column = 0; column < shared; ++column) {
        const bool fitted = column == 0 && m_firstWidth > 0;
        const int share = fitted ? m_firstWidth + pictureWidth() : left / (shared - column);
        const int width = shared < columns && !fitted ? std::max(share, narrowest) : share;
        header()->resizeSection(column, width);
        left -= width;
    }
}

} // namespace document
