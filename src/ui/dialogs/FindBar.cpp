// SPDX-License-Identifier: MIT
#include "ui/dialogs/FindBar.h"

#include "ui/dialogs/ReportView.h"
#include "ui/widgets/NamedControls.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QToolButton>

namespace validation {

FindBar::FindBar(ReportView &text, QWidget *parent)
    : QWidget(parent)
    , txtFind(new QLineEdit(this))
    , cmdFindPrevious(button("Pre&vious"))
    , cmdFindNext(button("&Next"))
    , cmdFindClose(button("\u00d7"))
    , lblFound(new QLabel(this))
    , m_text(text)
{
    nameControls();
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(txtFind, 1);
    layout->addWidget(lblFound);
    layout->addWidget(cmdFindPrevious);
    layout->addWidget(cmdFindNext);
    layout->addWidget(cmdFindClose);
    hide();

    connect(txtFind, &QLineEdit::textChanged, this, &FindBar::typed);
    connect(cmdFindPrevious, &QToolButton::clicked, this, &FindBar::FindPrevious);
    connect(cmdFindNext, &QToolButton::clicked, this, &FindBar::FindNext);
    connect(cmdFindClose, &QToolButton::clicked, this, &FindBar::leave);
}

QToolButton *FindBar::button(const char *caption)
{
    auto *made = new QToolButton(this);
    made->setText(QString::fromUtf8(caption));
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::TabFocus);
    return made;
}

void FindBar::nameControls()
{
    const install::NamedControl controls[] = {
        {txtFind, "txtFind", "Find", "Text to look for; Enter finds the next place"},
        {lblFound, "lblFound", "", ""},
        {cmdFindPrevious, "cmdFindPrevious", "Find previous", "Find the previous place (Shift+F3)"},
        {cmdFindNext, "cmdFindNext", "Find next", "Find the next place (F3)"},
        {cmdFindClose, "cmdFindClose", "Close the find bar", "Close the find bar (Esc)"},
    };
    setObjectName("findBar");
    install::NameControls(controls);
    txtFind->setPlaceholderText(QStringLiteral("Find"));
    txtFind->setClearButtonEnabled(true);
    for (QToolButton *clear : txtFind->findChildren<QToolButton *>())
        clear->setAccessibleName(QStringLiteral("Clear"));
}

void FindBar::Open()
{
    const QString selected = m_text.textCursor().selectedText();
    m_text.Finish();
    show();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        txtFind->setText(selected);
    txtFind->selectAll();
    txtFind->setFocus();
    Recount();
}

void FindBar::FindNext()
{
    find({});
}

void FindBar::FindPrevious()
{
    find(QTextDocument::FindBackward);
}

void FindBar::Recount()
{
    const QString wanted = txtFind->text();
    const qsizetype count =
        wanted.isEmpty() ? 0 : m_text.toPlainText().count(wanted, Qt::CaseInsensitive);
    lblFound->setText(wanted.isEmpty() ? QString()
                      : count == 0     ? QStringLiteral("Not found")
                                       : QLocale().toString(count) + QStringLiteral(" found"));
    cmdFindPrevious->setEnabled(count > 0);
    cmdFindNext->setEnabled(count > 0);
}

/// Searches again from the start of the last match, so that the match grows while the user types.
void FindBar::typed()
{
    Recount();
    QTextCursor cursor = m_text.textCursor();
    cursor.setPosition(cursor.selectionStart());
    m_text.setTextCursor(cursor);
    FindNext();
}

void FindBar::find(QTextDocument::FindFlags direction)
{
    const QString wanted = txtFind->text();
    if (wanted.isEmpty() && !isVisible())
        Open();
    m_text.Finish();
    if (wanted.isEmpty() || m_text.find(wanted, direction))
        return;
    const QTextCursor before = m_text.textCursor();
    m_text.moveCursor(direction ? QTextCursor::End : QTextCursor::Start);
    if (!m_text.find(wanted, direction))
        m_text.setTextCursor(before);
}

void FindBar::leave()
{
    hide();
    m_text.setFocus();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        leave();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->modifiers() & Qt::ShiftModifier ? FindPrevious() : FindNext();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace validation
