// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QPainter;
class QPrinter;
class QRectF;

namespace app {

/// Content to print, page by page. Lengths are in dots of the device.
class Printout
{
public:
    virtual ~Printout() = default;

    /// Lays the content out for a device; `body` is the area for content on each page. Returns the
    /// number of pages, at least one. Call this before PaintPage.
    virtual int LayOut(QPrinter &printer, const QRectF &body) = 0;
    /// Paints a page, counted from 0; the painter's origin is the top left corner of the body.
    virtual void PaintPage(QPainter &painter, int page) = 0;
};

/// Returns a printout of names in columns that are read downwards.
std::unique_ptr<Printout> PrintNames(QStringList names);

struct PrintColumn
{
    QString title;
    double share; ///< of the width; all columns add up to 1
};
/// Returns a printout of rows under column titles, which every page repeats. Shortens text that is
/// too long for its cell.
std::unique_ptr<Printout> PrintTable(std::vector<PrintColumn> columns,
                                     std::vector<QStringList> rows);

/// Returns a printout of text, with long lines wrapped.
std::unique_ptr<Printout> PrintText(const QString &text);

/// Returns a printout of an image, as large as the page allows.
std::unique_ptr<Printout> PrintPicture(const QImage &picture);

/// The parts of a page above and below the content, the same on every page.
struct PageFrame
{
    QString title, subtitle; ///< above; an empty subtitle is left out
    QString footer;          ///< bottom left; the page number is at the bottom right
};

/// Prints all pages that the printer is set to print; returns false if the printer refuses.
bool Print(QPrinter &printer, const PageFrame &frame, Printout &content);

} // namespace app
