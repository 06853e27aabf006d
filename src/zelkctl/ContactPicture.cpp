// SPDX-License-Identifier: MIT
#include "zelkctl/ContactPage.h"
#include "zelkctl/Session.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace zelkctl {
namespace {

constexpr int kMargin = 16, kGap = 12;        ///< pixels
constexpr int kText = 13, kTitle = 18;        ///< pixels: heights of the letters
constexpr int kPageWidth = 1400;              ///< pixels, at the least one picture
constexpr int kHighest = 32000;               ///< pixels that an image may have
constexpr std::size_t kLinesBelowPicture = 3; ///< for every cell alike

QFont fontOf(int pixels, bool bold)
{
    QFont font;
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

/// Walks down the page. Without a painter it only measures.
class Page
{
public:
    Page(QPainter *painter, int pictureWidth)
        : m_painter(painter)
        , m_picture(pictureWidth, pictureWidth / 2)
        , m_columns(std::max(1, (kPageWidth - 2 * kMargin + kGap) / (pictureWidth + kGap)))
    {
    }

    int Width() const { return 2 * kMargin + m_columns * (m_picture.width() + kGap) - kGap; }
    int Height() const { return m_y + kMargin; }

    void Add(ContactSection &section, const DrawCell &draw)
    {
        line(kMargin, m_y, Width() - 2 * kMargin, section.title, kTitle, true);
        m_y += lineHeight(kTitle) + kGap / 2;
        for (const auto &[label, text] : section.lines) {
            line(kMargin, m_y, kLabel, label, kText, true);
            line(kMargin + kLabel, m_y, Width() - 2 * kMargin - kLabel, text, kText, false);
            m_y += lineHeight(kText);
        }
        m_y += kGap / 2;
        addCells(section.cells, draw);
        m_y += kGap;
    }

private:
    static constexpr int kLabel = 180;

    static int lineHeight(int pixels) { return pixels * 3 / 2; }
    int cellHeight() const
    {
        return m_picture.height() + kGap / 2 +
               static_cast<int>(kLinesBelowPicture) * lineHeight(kText) + kGap;
    }
    void addCells(std::vector<ContactCell> &cells, const DrawCell &draw)
    {
        for (std::size_t i = 0; i < cells.size() && m_painter; ++i) {
            const int column = static_cast<int>(i % static_cast<std::size_t>(m_columns));
            const int row = static_cast<int>(i / static_cast<std::size_t>(m_columns));
            paint(cells[i], kMargin + column * (m_picture.width() + kGap), m_y + row * cellHeight(),
                  draw);
        }
        const auto columns = static_cast<std::size_t>(m_columns);
        m_y += static_cast<int>((cells.size() + columns - 1) / columns) * cellHeight();
    }
    void paint(ContactCell &cell, int x, int y, const DrawCell &draw)
    {
        const QRect place(QPoint(x, y), m_picture);
        if (const QImage picture = draw(cell); !picture.isNull())
            m_painter->drawImage(place, picture);
        else
            paintReason(cell, place);
        y += m_picture.height() + kGap / 2;
        bool isFirst = true;
        for (const std::string &text : CaptionOf(cell)) {
            line(x, y, m_picture.width(), text, kText, isFirst);
            y += lineHeight(kText);
            isFirst = false;
        }
    }
    void paintReason(const ContactCell &cell, const QRect &place)
    {
        m_painter->fillRect(place, QColor(232, 234, 236));
        m_painter->setFont(fontOf(kText, false));
        m_painter->drawText(place.adjusted(kGap, kGap, -kGap, -kGap),
                            Qt::AlignCenter | Qt::TextWrapAnywhere,
                            QString::fromStdString(cell.reason));
    }
    void line(int x, int y, int width, const std::string &text, int pixels, bool bold)
    {
        if (!m_painter)
            return;
        const QFont font = fontOf(pixels, bold);
        m_painter->setFont(font);
        m_painter->drawText(
            QRect(x, y, width, lineHeight(pixels)), Qt::AlignVCenter,
            QFontMetrics(font).elidedText(QString::fromStdString(text), Qt::ElideMiddle, width));
    }

    QPainter *m_painter;
    QSize m_picture;
    int m_columns;
    int m_y = kMargin;
};

void require(bool condition)
{
    if (!condition)
        throw Failure("there are too many vehicles for one picture; write an .html file, or "
                      "choose fewer with --filter");
}

} // namespace

std::string PngContactPage(std::vector<ContactSection> sections, int width, const DrawCell &draw)
{
    Page measured(nullptr, width);
    for (ContactSection &section : sections) {
        measured.Add(section, draw);
        require(measured.Height() <= kHighest);
    }
    QImage image(measured.Width(), measured.Height(), QImage::Format_RGB32);
    require(!image.isNull());
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(QColor(20, 22, 24));
    Page page(&painter, width);
    for (ContactSection &section : sections)
        page.Add(section, draw);
    painter.end();
    return PngOf(image);
}

} // namespace zelkctl
