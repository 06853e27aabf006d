// SPDX-License-Identifier: MIT
#include "ui/dialogs/ReportView.h"

#include <QFontDatabase>
#include <QPaintEvent>
#include <QPainter>
#include <QSyntaxHighlighter>
#include <QTextBlock>

#include <cstring>

namespace validation {

namespace {

constexpr qreal kMargin = 8; ///< pixels around the text

/// Colours the first word of a report line, to distinguish errors from remarks.
class ReportColours : public QSyntaxHighlighter
{
public:
    ReportColours(QTextDocument *document, const QPalette &palette)
        : QSyntaxHighlighter(document)
        , m_faded(palette.color(QPalette::PlaceholderText))
    {
        const bool dark = palette.color(QPalette::Base).lightness() < 128;
        m_error = QColor(dark ? 0xff8a80 : 0xb3261e);
        m_stopped = QColor(dark ? 0xffcc66 : 0x8a5a00);
    }

protected:
    void highlightBlock(const QString &line) override
    {
        if (BeginsWith(line, kErrorWord))
            paint(kErrorWord, m_error, QFont::Bold);
        else if (BeginsWith(line, kStoppedWord))
            paint(kStoppedWord, m_stopped, QFont::Bold);
        else if (BeginsWith(line, kInfoWord))
            paint(kInfoWord, m_faded, QFont::Normal);
    }

private:
    void paint(const char *word, const QColor &colour, QFont::Weight weight)
    {
        QTextCharFormat format;
        format.setForeground(colour);
        format.setFontWeight(weight);
        setFormat(0, static_cast<int>(std::strlen(word)), format);
    }

    QColor m_faded, m_error, m_stopped;
};

} // namespace

bool BeginsWith(const QString &line, const char *word)
{
    return line.startsWith(QLatin1String(word));
}

ReportView::ReportView(QWidget *parent)
    : QPlainTextEdit(parent)
{
    setReadOnly(true);
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
    new ReportColours(document(), palette());
}

void ReportView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    const QBrush stripe = palette().alternateBase();
    QTextBlock block = firstVisibleBlock();
    QRectF place = blockBoundingGeometry(block).translated(contentOffset());
    while (block.isValid() && place.top() <= event->rect().bottom()) {
        if (block.blockNumber() % 2 == 1)
            painter.fillRect(QRectF(0, place.top(), viewport()->width(), place.height()), stripe);
        block = block.next();
        place = QRectF(place.bottomLeft(), blockBoundingRect(block).size());
    }
    painter.end();
    QPlainTextEdit::paintEvent(event);
}

} // namespace validation
