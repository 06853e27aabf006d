// SPDX-License-Identifier: MIT
#include "ui/dialogs/ReportView.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>

#include <cstring>

namespace validation {

namespace {

constexpr qreal kMargin = 8; ///< pixels around the text

constexpr std::size_t kSlice = 50'000; ///< bytes; takes a few milliseconds to insert

} // namespace

ReportView::ReportView(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDocumentMargin(kMargin);
    // The find bar has the focus while the text shows the match.
    QPalette colours = palette();
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText})
        colours.setColor(QPalette::Inactive, role, colours.color(QPalette::Active, role));
    setPalette(colours);
    const bool dark = colours.color(QPalette::Base).lightness() < 128;
    m_faded = colours.color(QPalette::PlaceholderText);
    m_error = QColor(dark ? 0xff8a80 : 0xb3261e);
    m_stopped = QColor(dark ? 0xffcc66 : 0x8a5a00);
    connect(&m_filling, &QTimer::timeout, this, &ReportView::appendSlice);
}

void ReportView::SetReport(std::string_view text)
{
    m_rest = text;
    setPlainText(takeLines(kSlice));
    m_rest.empty() ? m_filling.stop() : m_filling.start(0);
}

void ReportView::Finish()
{
    if (m_rest.empty())
        return;
    append(takeLines(m_rest.size()));
    m_filling.stop();
    Q_EMIT Filled();
}

/// Takes whole lines from the rest, of about this size.
QString ReportView::takeLines(std::size_t size)
{
    const std::size_t feed = size < m_rest.size() ? m_rest.find('\n', size) : m_rest.npos;
    const std::string_view lines = m_rest.substr(0, feed == m_rest.npos ? feed : feed + 1);
    m_rest.remove_prefix(lines.size());
    return QString::fromUtf8(lines.data(), static_cast<qsizetype>(lines.size()));
}

/// Does not move the user's cursor, the selection or the view.
void ReportView::append(const QString &lines)
{
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    const QTextCursor before = textCursor();
    const bool moves = before.atEnd(); // else the toolkit moves it along with the text
    end.insertText(lines);
    if (moves) {
        QTextCursor kept(document());
        kept.setPosition(before.anchor());
        setTextCursor(kept);
    }
}

void ReportView::appendSlice()
{
    if (!m_rest.empty())
        append(takeLines(kSlice));
    if (!m_rest.empty())
        return;
    m_filling.stop();
    Q_EMIT Filled();
}

void ReportView::keyPressEvent(QKeyEvent *event)
{
    for (const QKeySequence::StandardKey key :
         {QKeySequence::SelectAll, QKeySequence::MoveToEndOfDocument,
          QKeySequence::SelectEndOfDocument})
        if (event->matches(key))
            Finish();
    QPlainTextEdit::keyPressEvent(event);
}

/// Colours the first word of a report line, to distinguish errors from remarks. Only lines in view
/// need it: the formats of all lines of a long report would take more memory than its text.
void ReportView::colourWord(const QTextBlock &line) const
{
    struct Colour
    {
        const char *word;
        const QColor &colour;
        QFont::Weight weight;
    };
    if (!line.layout()->formats().isEmpty())
        return;
    const QString text = line.text();
    for (const Colour &each :
         {Colour{kErrorWord, m_error, QFont::Bold}, Colour{kStoppedWord, m_stopped, QFont::Bold},
          Colour{kInfoWord, m_faded, QFont::Normal}}) {
        if (!text.startsWith(QLatin1String(each.word)))
            continue;
        QTextLayout::FormatRange range;
        range.start = 0;
        range.length = static_cast<int>(std::strlen(each.word));
        range.format.setForeground(each.colour);
        range.format.setFontWeight(each.weight);
        line.layout()->setFormats({range});
    }
}

void ReportView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    const QBrush stripe = palette().alternateBase();
    QTextBlock block = firstVisibleBlock();
    QRectF place = blockBoundingGeometry(block).translated(contentOffset());
    while (block.isValid() && place.top() <= event->rect().bottom()) {
        colourWord(block);
        if (block.blockNumber() % 2 == 1)
            painter.fillRect(QRectF(0, place.top(), viewport()->width(), place.height()), stripe);
        block = block.next();
        place = QRectF(place.bottomLeft(), blockBoundingRect(block).size());
    }
    painter.end();
    QPlainTextEdit::paintEvent(event);
}

} // namespace validation
