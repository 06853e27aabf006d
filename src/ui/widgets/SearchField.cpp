// SPDX-License-Identifier: MIT
#include "ui/widgets/SearchField.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

namespace document {

namespace {

constexpr int kGap = 6;          // between the text and the remark
constexpr int kClearButton = 26; // the button at the right end, with its margins

bool clears(const QKeyEvent &key, const QString &text)
{
    return key.key() == Qt::Key_Escape && key.modifiers() == Qt::NoModifier && !text.isEmpty();
}

} // namespace

SearchField::SearchField(const char *name, const QString &title, QWidget *parent)
    : QLineEdit(parent)
    , m_title(title)
{
    setObjectName(name);
    setAccessibleName(title);
    setAccessibleDescription(QString::fromLatin1(name));
    setPlaceholderText(title + QStringLiteral(" (Ctrl+K)"));
    setFocusPolicy(Qt::ClickFocus);
    setMaxLength(1000);
    setMinimumWidth(60);
    connect(this, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.isEmpty())
            SetRemark({});
        else
            addClearButton();
    });
}

/// It shows only beside text. Looking for its icon in the desktop's themes would take a quarter of
/// the program's start.
void SearchField::addClearButton()
{
    if (isClearButtonEnabled())
        return;
    setClearButtonEnabled(true);
    for (auto *clearButton : findChildren<QToolButton *>())
        clearButton->setAccessibleName(QStringLiteral("Clear: ") + m_title);
}

void SearchField::SetRemark(const QString &remark)
{
    if (remark == m_remark)
        return;
    m_remark = remark;
    setAccessibleName(remark.isEmpty() ? m_title : m_title + QStringLiteral(": ") + remark);
    makeRoom();
    update();
}

/// The remark takes at most half of the field.
QString SearchField::shownRemark() const
{
    return fontMetrics().elidedText(m_remark, Qt::ElideRight, width() / 2);
}

void SearchField::makeRoom()
{
    const QString shown = shownRemark();
    setTextMargins(0, 0, shown.isEmpty() ? 0 : fontMetrics().horizontalAdvance(shown) + kGap, 0);
    setToolTip(shown == m_remark ? QString() : m_remark);
}

void SearchField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    makeRoom();
}

void SearchField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (m_remark.isEmpty())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect().adjusted(0, 0, -kClearButton, 0), Qt::AlignRight | Qt::AlignVCenter,
                     shownRemark());
}

bool SearchField::event(QEvent *event)
{
    // Otherwise Esc would stop the work of the program.
    if (event->type() == QEvent::ShortcutOverride &&
        clears(*static_cast<QKeyEvent *>(event), text())) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    if (clears(*event, text())) {
        clear();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Up:
        Q_EMIT UpPressed();
        break;
    case Qt::Key_Down:
        Q_EMIT DownPressed();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT ReturnPressed();
        break;
    case Qt::Key_Escape:
        Q_EMIT Left();
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

} // namespace document
