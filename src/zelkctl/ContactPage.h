// SPDX-License-Identifier: MIT
#pragma once

#include "content/SheetText.h"

#include <QImage>

#include <functional>
#include <string>
#include <vector>

namespace zelkctl {

/// A vehicle on a contact sheet, or several alike units that follow each other.
struct ContactCell
{
    std::string vehicle; ///< "FOLDER/NAME.wag"
    std::string name;    ///< the vehicle's own; "" for none
    std::string figures; ///< "25 m · 45 t"; "" if none is known
    std::string file;    ///< its path; "" if it is missing
    std::string reason;  ///< why there is no picture; "" if there is one
    bool flipped = false;
    int count = 1;
};

struct ContactSection
{
    std::string title;
    std::vector<content::SheetLine> lines; ///< a train sheet
    std::vector<ContactCell> cells;
};

/// Returns the picture of a cell, or a null image after storing the reason in the cell.
using DrawCell = std::function<QImage(ContactCell &)>;

/// Returns the texts below a picture, without the empty ones.
std::vector<std::string> CaptionOf(const ContactCell &cell);

/// Returns an HTML file with the pictures in it.
std::string HtmlContactPage(std::vector<ContactSection> sections, const DrawCell &draw);

/// Returns the bytes of a PNG file; `width` is that of each picture, in pixels. Throws Failure for
/// more vehicles than a picture can hold.
std::string PngContactPage(std::vector<ContactSection> sections, int width, const DrawCell &draw);

/// Returns an image as the bytes of a PNG file; "" if there is no memory.
std::string PngOf(const QImage &image);

} // namespace zelkctl
