// SPDX-License-Identifier: MIT
#include "ui/print/Printouts.h"

#include <QAbstractTextDocumentLayout>
#include <QFontDatabase>
#include <QPainter>
#include <QPrinter>
#include <QTextDocument>

#include <algorithm>

namespace app {

namespace {

constexpr double kTextPoints = 9, kTitlePoints = 15, kFootPoints = 8;
const QColor kInk(0x20, 0x20, 0x20), kFaded(0x60, 0x60, 0x60), kRule(0xB0, 0xB0, 0xB0),
    kStripe(0xF2, 0xF4, 0xF6);

QFont fontOf(double points, bool bold = false)
{
    QFont font(QStringLiteral("Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

double pointOf(const QPrinter &printer)
{
    return printer.resolution() / 72.0;
}

int pagesFor(std::size_t items, int perPage)
{
    const auto each = static_cast<std::size_t>(perPage);
    return std::max(1, static_cast<int>((items + each - 1) / each));
}

/// A printout in rows of equal height.
class Rows : public Printout
{
protected:
    void measure(QPrinter &printer, const QRectF &body)
    {
        m_width = body.width();
        m_point = pointOf(printer);
        m_rowHeight = QFontMetricsF(fontOf(kTextPoints), &printer).height() + 3 * m_point;
        m_rows = std::max(1, static_cast<int>(body.height() / m_rowHeight));
    }
    /// Paints one line of text, vertically centred in a cell. If it is too long, "..." replaces its
    /// middle.
    void paintCell(QPainter &painter, QRectF cell, const QString &text) const
    {
        cell.adjust(3 * m_point, 0, -3 * m_point, 0);
        const QString cut = QFontMetricsF(painter.font(), painter.device())
                                .elidedText(text, Qt::ElideMiddle, cell.width());
        painter.drawText(cell, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, cut);
    }

    double m_width = 0, m_point = 1, m_rowHeight = 1;
    int m_rows = 1; ///< per page
};

class Names : public Rows
{
public:
    explicit Names(QStringList names)
        : m_names(std::move(names))
    {
    }
    int LayOut(QPrinter &printer, const QRectF &body) override
    {
        measure(printer, body);
        const QFontMetricsF metrics(fontOf(kTextPoints), &printer);
        double widest = 0;
        for (const QString &name : m_names)
            widest = std::max(widest, metrics.horizontalAdvance(name) + 8 * m_point);
        m_columns = std::clamp(static_cast<int>(m_width / std::max(widest, 1.0)), 1, 3);
        return pagesFor(static_cast<std::size_t>(m_names.size()), m_rows * m_columns);
    }
    void PaintPage(QPainter &painter, int page) override
    {
        painter.setFont(fontOf(kTextPoints));
        painter.setPen(kInk);
        const qsizetype first = qsizetype(page) * m_rows * m_columns;
        const qsizetype end = std::min(first + m_rows * m_columns, m_names.size());
        const double width = m_width / m_columns;
        for (qsizetype i = first; i < end; ++i) {
            const auto column = static_cast<int>((i - first) / m_rows);
            const auto row = static_cast<int>((i - first) % m_rows);
            paintCell(painter, QRectF(column * width, row * m_rowHeight, width, m_rowHeight),
                      m_names[i]);
        }
    }

private:
    QStringList m_names;
    int m_columns = 1;
};

class Table : public Rows
{
public:
    Table(std::vector<PrintColumn> columns, std::vector<QStringList> rows)
        : m_columns(std::move(columns))
        , m_content(std::move(rows))
    {
    }
    int LayOut(QPrinter &printer, const QRectF &body) override
    {
        measure(printer, body);
        m_rows = std::max(1, m_rows - 1); // one row holds the titles
        return pagesFor(m_content.size(), m_rows);
    }
    void PaintPage(QPainter &painter, int page) override
    {
        paintTitles(painter);
        painter.setFont(fontOf(kTextPoints));
        const auto first = static_cast<std::size_t>(page) * static_cast<std::size_t>(m_rows);
        const std::size_t end =
            std::min(first + static_cast<std::size_t>(m_rows), m_content.size());
        for (std::size_t i = first; i < end; ++i) {
            const double top = static_cast<double>(i - first + 1) * m_rowHeight;
            if (i % 2 == 1)
                painter.fillRect(QRectF(0, top, m_width, m_rowHeight), kStripe);
            paintRow(painter, top, m_content[i]);
        }
    }

private:
    void paintTitles(QPainter &painter) const
    {
        QStringList titles;
        for (const PrintColumn &column : m_columns)
            titles << column.title;
        painter.setFont(fontOf(kTextPoints, true));
        paintRow(painter, 0, titles);
        painter.setPen(QPen(kRule, m_point * 0.75));
        painter.drawLine(QPointF(0, m_rowHeight), QPointF(m_width, m_rowHeight));
    }
    void paintRow(QPainter &painter, double top, const QStringList &cells) const
    {
        painter.setPen(kInk);
        double left = 0;
        for (std::size_t column = 0; column < m_columns.size(); ++column) {
            const double width = m_columns[column].share * m_width;
            paintCell(painter, QRectF(left, top, width, m_rowHeight),
                      cells.value(static_cast<qsizetype>(column)));
            left += width;
        }
    }

    std::vector<PrintColumn> m_columns;
    std::vector<QStringList> m_content;
};

class Text : public Printout
{
public:
    explicit Text(const QString &text)
    {
        QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        font.setPointSizeF(kTextPoints - 1);
        m_document.setDefaultFont(font);
        m_document.setDocumentMargin(0);
        QTextOption wrapping;
        wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        m_document.setDefaultTextOption(wrapping);
        m_document.setPlainText(text);
    }
    int LayOut(QPrinter &printer, const QRectF &body) override
    {
        m_document.documentLayout()->setPaintDevice(&printer);
        m_document.setPageSize(body.size());
        m_page = body.size();
        return m_document.pageCount();
    }
    void PaintPage(QPainter &painter, int page) override
    {
        const QRectF part(QPointF(0, page * m_page.height()), m_page);
        painter.translate(0, -part.top());
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = part;
        context.palette.setColor(QPalette::Text, kInk);
        painter.setClipRect(part);
        m_document.documentLayout()->draw(&painter, context);
    }

private:
    QTextDocument m_document;
    QSizeF m_page;
};

class Picture : public Printout
{
public:
    explicit Picture(QImage picture)
        : m_picture(std::move(picture))
    {
    }
    int LayOut(QPrinter &, const QRectF &body) override
    {
        m_size = QSizeF(m_picture.size()).scaled(body.size(), Qt::KeepAspectRatio);
        m_left = (body.width() - m_size.width()) / 2;
        return 1;
    }
    void PaintPage(QPainter &painter, int) override
    {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(QPointF(m_left, 0), m_size), m_picture);
    }

private:
    QImage m_picture;
    QSizeF m_size;
    double m_left = 0;
};

/// The parts of a page, all within the printer's own margins.
struct PageParts
{
    QRectF page, body;
    double subtitleTop = 0, footerTop = 0;
};

PageParts partsOf(QPrinter &printer, const PageFrame &frame)
{
    const double point = pointOf(printer);
    const auto heightOf = [&printer](double points) {
        return QFontMetricsF(fontOf(points), &printer).height();
    };
    PageParts parts;
    parts.page = QRectF(QPointF(), printer.pageRect(QPrinter::DevicePixel).size());
    parts.subtitleTop = heightOf(kTitlePoints) + point;
    const double head =
        parts.subtitleTop + (frame.subtitle.isEmpty() ? 0 : heightOf(kTextPoints)) + 10 * point;
    parts.footerTop = parts.page.height() - heightOf(kFootPoints);
    parts.body =
        QRectF(0, head, parts.page.width(), std::max(point, parts.footerTop - 8 * point - head));
    return parts;
}

void paintFrame(QPainter &painter, const PageFrame &frame, const PageParts &parts,
                const QString &number)
{
    const auto line = [&](double points, bool bold, double top, int alignment, QString text,
                          const QColor &colour) {
        const QFont font = fontOf(points, bold);
        const QFontMetricsF metrics(font, painter.device());
        painter.setFont(font);
        painter.setPen(colour);
        text = metrics.elidedText(text, Qt::ElideMiddle, parts.page.width());
        painter.drawText(QRectF(0, top, parts.page.width(), metrics.height()),
                         alignment | Qt::TextSingleLine, text);
    };
    line(kTitlePoints, true, 0, Qt::AlignLeft, frame.title, kInk);
    line(kTextPoints, false, parts.subtitleTop, Qt::AlignLeft, frame.subtitle, kFaded);
    line(kFootPoints, false, parts.footerTop, Qt::AlignLeft, frame.footer, kFaded);
    line(kFootPoints, false, parts.footerTop, Qt::AlignRight, number, kFaded);
}

} // namespace

std::unique_ptr<Printout> PrintNames(QStringList names)
{
    return std::make_unique<Names>(std::move(names));
}

std::unique_ptr<Printout> PrintTable(std::vector<PrintColumn> columns,
                                     std::vector<QStringList> rows)
{
    return std::make_unique<Table>(std::move(columns), std::move(rows));
}

std::unique_ptr<Printout> PrintText(const QString &text)
{
    return std::make_unique<Text>(text);
}

std::unique_ptr<Printout> PrintPicture(const QImage &picture)
{
    return std::make_unique<Picture>(picture);
}

bool Print(QPrinter &printer, const PageFrame &frame, Printout &content)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const PageParts parts = partsOf(printer, frame);
    const int pages = content.LayOut(printer, parts.body);
    const int first = printer.fromPage() > 0 ? std::min(printer.fromPage(), pages) : 1;
    const int last = printer.toPage() > 0 ? std::clamp(printer.toPage(), first, pages) : pages;
    for (int page = first; page <= last; ++page) {
        if (page > first && !printer.newPage())
            return false;
        paintFrame(painter, frame, parts, QStringLiteral("Page %1 of %2").arg(page).arg(pages));
        painter.save();
        painter.translate(parts.body.topLeft());
        content.PaintPage(painter, page - 1);
        painter.restore();
    }
    return painter.end();
}

} // namespace app
