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

/// What is printed, page by page. Lengths are in dots of the device.
class Printout
{
public:
    virtual ~Printout() = default;

    /// Lays the content out for a device: the number of pages that hold `body` of it each, at least
    /// one. To be called before PaintPage.
    virtual int LayOut(QPrinter &printer, const QRectF &body) = 0;
    /// Paints a page, from 0 on; the painter's origin is the top left corner of the body.
    virtual void PaintPage(QPainter &painter, int page) = 0;
};

/// Names in columns, read down and then to the right.
std::unique_ptr<Printout> PrintNames(QStringList names);

struct PrintColumn
{
    QString title;
    double share; ///< of the width, all columns together 1
};
/// Rows under column titles, which are repeated on every page. Text too long for its cell is cut.
std::unique_ptr<Printout> PrintTable(std::vector<PrintColumn> columns,
                                     std::vector<QStringList> rows);

/// Lines of text, wrapped.
std::unique_ptr<Printout> PrintText(const QString &text);

/// A picture, as large as the page allows.
std::unique_ptr<Printout> PrintPicture(const QImage &picture);

/// What stands above the content and below it on every page.
struct PageFrame
{
    QString title, subtitle; ///< above; a picture or list with no more to say has no subtitle
    QString footer;          ///< below at the left; the page's number is at the right
};

/// Prints all pages that the printer is set to print. False when the printer refuses.
bool Print(QPrinter &printer, const PageFrame &frame, Printout &content);

} // namespace app
