// SPDX-License-Identifier: MIT
#pragma once

#include "ui/print/Printouts.h"

#include <memory>
#include <string>

class frmDocument;
namespace install {
class Installation;
}

namespace app {

/// Something to print, with the name that the printer's queue shows.
struct PrintJob
{
    std::string name;
    PageFrame frame;
    std::unique_ptr<Printout> content;
};

/// Returns what a document window prints, by its mode: the list of consists as shown, the vehicles
/// of a consist as in the editor, or the image of a 3D view. Throws RuntimeError 5 if there is no
/// image.
PrintJob JobOf(frmDocument &window, const install::Installation &installation);

/// Returns the report of a results window.
PrintJob ResultsJob(const std::string &caption, const std::string &text);

} // namespace app
