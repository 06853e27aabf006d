// SPDX-License-Identifier: MIT
#include "ui/document/TrainDrag.h"

#include "document/UnitClipboard.h"
#include "host/Text.h"
#include "ui/document/UnitCommands.h"
#include "ui/document/UnitMime.h"
#include "ui/widgets/ListView.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QFontMetrics>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QToolTip>

namespace document {

namespace {

constexpr int kLine = 3, kScrollMargin = 20;

/// Returns what the mouse drags: "3 units".
QPixmap picture(std::size_t units)
{
    const QString text = QString::fromStdString(host::Counted(units, "unit", "units"));
    const QPalette colours = QToolTip::palette();
    constexpr int air = 5;
    const QRect frame =
        QFontMetrics(QApplication::font()).boundingRect(text).adjusted(-air, -air, air, air);
    QPixmap drawn(frame.size());
    drawn.fill(colours.color(QPalette::ToolTipBase));
    QPainter painter(&drawn);
    painter.setPen(colours.color(QPalette::ToolTipText));
    painter.drawRect(drawn.rect().adjusted(0, 0, -1, -1));
    painter.drawText(drawn.rect(), Qt::AlignCenter, text);
    return drawn;
}

} // namespace

TrainDrag::TrainDrag(ListView &train, UnitCommands &commands, QObject *parent)
    : QObject(parent)
    , m_train(train)
    , m_commands(commands)
    , m_line(new QWidget(train.viewport()))
{
    m_line->setAutoFillBackground(true);
    m_line->setBackgroundRole(QPalette::Text);
    m_line->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_line->hide();
    m_scrolling.setInterval(60);
    connect(&m_scrolling, &QTimer::timeout, this, &TrainDrag::scroll);
    train.viewport()->setAcceptDrops(true);
    train.viewport()->installEventFilter(this);
}

bool TrainDrag::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent *>(event));
        return false;
    case QEvent::MouseMove:
        return move(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        m_pressed.reset();
        return false;
    case QEvent::DragEnter:
    case QEvent::DragMove:
        hover(*static_cast<QDropEvent *>(event));
        return true;
    case QEvent::DragLeave:
        leave();
        return true;
    case QEvent::Drop:
        drop(*static_cast<QDropEvent *>(event));
        return true;
    default:
        return false;
    }
}

/// With a key held, the mouse selects rows as in every list.
void TrainDrag::press(const QMouseEvent &event)
{
    m_pressed.reset();
    if (event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier &&
        m_train.indexAt(event.position().toPoint()).isValid())
        m_pressed = event.position().toPoint();
}

bool TrainDrag::move(const QMouseEvent &event)
{
    if (!m_pressed || !(event.buttons() & Qt::LeftButton))
        return false;
    if ((event.position().toPoint() - *m_pressed).manhattanLength() >=
        QApplication::startDragDistance())
        start();
    return true;
}

void TrainDrag::start()
{
    m_pressed.reset();
    auto *drag = new QDrag(m_train.viewport()); // Qt deletes it
    drag->setMimeData(UnitMime(m_commands.Selected()).release());
    drag->setPixmap(picture(m_train.SelectedRows().size()));
    drag->setHotSpot({-12, -12});
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
}

void TrainDrag::hover(QDropEvent &event)
{
    if (!HoldsUnits(*event.mimeData())) {
        event.ignore(); // the main window takes files
        return;
    }
    event.setDropAction(event.source() == m_train.viewport() ? Qt::MoveAction : Qt::CopyAction);
    event.accept();
    const int y = event.position().toPoint().y();
    const bool atEdge = y < kScrollMargin || y > m_train.viewport()->height() - kScrollMargin;
    if (!atEdge)
        m_scrolling.stop();
    else if (!m_scrolling.isActive())
        m_scrolling.start();
    showLine(placeAt(event.position().toPoint()));
}

void TrainDrag::drop(QDropEvent &event)
{
    leave();
    if (!HoldsUnits(*event.mimeData())) {
        event.ignore();
        return;
    }
    const bool inside = event.source() == m_train.viewport();
    event.setDropAction(inside ? Qt::MoveAction : Qt::CopyAction);
    event.accept();
    const int place = placeAt(event.position().toPoint());
    if (inside)
        m_commands.MoveTo(place);
    else
        m_commands.Insert(*event.mimeData(), place);
    m_train.setFocus();
}

void TrainDrag::leave()
{
    m_scrolling.stop();
    m_line->hide();
}

void TrainDrag::scroll()
{
    const QPoint at = m_train.viewport()->mapFromGlobal(QCursor::pos());
    QScrollBar &bar = *m_train.verticalScrollBar();
    bar.setValue(bar.value() + bar.singleStep() * (at.y() < kScrollMargin ? -1 : 1));
    showLine(placeAt(at));
}

/// Returns the row, from 1, that a unit dropped here would have; a row more than there are below
/// the last one.
int TrainDrag::placeAt(const QPoint &position) const
{
    const QModelIndex index = m_train.indexAt({0, position.y()});
    if (!index.isValid())
        return position.y() < 0 ? 1 : m_train.model()->rowCount() + 1;
    const bool lower = position.y() > m_train.visualRect(index).center().y();
    return index.row() + (lower ? 2 : 1);
}

void TrainDrag::showLine(int place)
{
    const int rows = m_train.model()->rowCount();
    int y = 0;
    if (place <= rows)
        y = m_train.visualRect(m_train.model()->index(place - 1, 0)).top();
    else if (rows > 0)
        y = m_train.visualRect(m_train.model()->index(rows - 1, 0)).bottom() + 1;
    m_line->setGeometry(0, std::max(0, y - kLine / 2), m_train.viewport()->width(), kLine);
    m_line->raise();
    m_line->show();
}

} // namespace document
