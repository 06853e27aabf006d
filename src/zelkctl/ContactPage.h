// SPDX-License-Identifier: MIT
#pragma once

#include "content/SheetText.h"

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

/// Returns the picture of a cell as PNG, or "" after storing the reason in the cell.
using DrawCell = std::function<std::string(ContactCell &)>;

/// Returns an HTML file with the pictures in it.
std::string HtmlContactPage(std::vector<ContactSection> sections, const DrawCell &draw);

/// Returns the bytes of a PNG file, "" if there is no memory for it; `width` is that of each
/// picture, in pixels. Throws Failure for more vehicles than an image can hold.
std::string PngContactPage(std::vector<ContactSection> sections, int width, const DrawCell &draw);

} // namespace zelkctl
