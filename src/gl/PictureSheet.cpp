// SPDX-License-Identifier: MIT
#include "gl/PictureSheet.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace korvat {
namespace {

// In pixels.
constexpr int kMargin = 16, kGap = 12, kLabel = 180;
constexpr int kText = 13, kTitle = 18; ///< heights of the letters
constexpr int kPageWidth = 1400;       ///< at the least one picture
constexpr int kCaptions = 3;           ///< lines below every picture
constexpr QRgb kInk = 0xFF141618, kEmpty = 0xFFE8EAEC;

int lineHeight(int pixels)
{
    return pixels * 3 / 2;
}

QFont fontOf(int pixels, bool bold)
{
    QFont font;
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

QByteArray view(const std::string &bytes)
{
    return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace

struct PictureSheet::Page
{
    QSize picture;
    int columns = 1;
    QImage image; ///< null if the sheet only measures
    QPainter painter;
    int y = kMargin;
    int column = 0;
    bool inRows = false; ///< the last addition was a picture

    int Width() const { return 2 * kMargin + columns * (picture.width() + kGap) - kGap; }
    int CellHeight() const
    {
        return picture.height() + kGap / 2 + kCaptions * lineHeight(kText) + kGap;
    }
    void Line(int x, int top, int width, const std::string &text, int pixels, bool bold)
    {
        if (!painter.isActive())
            return;
        const QFont font = fontOf(pixels, bold);
        painter.setFont(font);
        painter.drawText(
            QRect(x, top, width, lineHeight(pixels)), Qt::AlignVCenter,
            QFontMetrics(font).elidedText(QString::fromStdString(text), Qt::ElideMiddle, width));
    }
    void Picture(const QRect &place, const std::string &png, const std::string &reason)
    {
        if (!painter.isActive())
            return;
        if (const QImage shown = QImage::fromData(view(png), "PNG"); !shown.isNull()) {
            painter.drawImage(place, shown);
            return;
        }
        painter.fillRect(place, QColor(kEmpty));
        painter.setFont(fontOf(kText, false));
        painter.drawText(place.adjusted(kGap, kGap, -kGap, -kGap),
                         Qt::AlignCenter | Qt::TextWrapAnywhere, QString::fromStdString(reason));
    }
};

PictureSheet::PictureSheet(int pictureWidth, int height)
    : m_page(std::make_unique<Page>())
{
    m_page->picture = {pictureWidth, pictureWidth / 2};
    m_page->columns = std::max(1, (kPageWidth - 2 * kMargin + kGap) / (pictureWidth + kGap));
    if (height <= 0)
        return;
    m_page->image = QImage(m_page->Width(), height, QImage::Format_RGB32);
    if (m_page->image.isNull())
        return;
    m_page->image.fill(Qt::white);
    m_page->painter.begin(&m_page->image);
    m_page->painter.setPen(QColor(kInk));
}

PictureSheet::~PictureSheet()
{
    m_page->painter.end();
}

void PictureSheet::AddTitle(const std::string &text)
{
    m_page->inRows = false;
    m_page->Line(kMargin, m_page->y, m_page->Width() - 2 * kMargin, text, kTitle, true);
    m_page->y += lineHeight(kTitle) + kGap / 2;
}

void PictureSheet::AddLine(const std::string &label, const std::string &text)
{
    m_page->Line(kMargin, m_page->y, kLabel, label, kText, true);
    m_page->Line(kMargin + kLabel, m_page->y, m_page->Width() - 2 * kMargin - kLabel, text, kText,
                 false);
    m_page->y += lineHeight(kText);
}

void PictureSheet::AddPicture(const std::string &png, const std::string &reason,
                              const std::vector<std::string> &captions)
{
    Page &page = *m_page;
    if (!std::exchange(page.inRows, true))
        page.y += kGap / 2;
    const int x = kMargin + page.column * (page.picture.width() + kGap);
    page.Picture(QRect(QPoint(x, page.y), page.picture), png, reason);
    int y = page.y + page.picture.height() + kGap / 2;
    for (int i = 0; i < kCaptions && i < static_cast<int>(captions.size()); ++i) {
        page.Line(x, y, page.picture.width(), captions[static_cast<std::size_t>(i)], kText, i == 0);
        y += lineHeight(kText);
    }
    if (++page.column == page.columns)
        EndPictures();
}

void PictureSheet::EndPictures()
{
    if (m_page->column > 0)
        m_page->y += m_page->CellHeight();
    m_page->column = 0;
}

int PictureSheet::Height() const
{
    return m_page->y + (m_page->column > 0 ? m_page->CellHeight() : 0) + kMargin;
}

std::string PictureSheet::Png()
{
    m_page->painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return m_page->image.save(&buffer, "PNG") ? bytes.toStdString() : std::string();
}

std::string DataUrl(const std::string &png)
{
    return "data:image/png;base64," + view(png).toBase64().toStdString();
}

} // namespace korvat
