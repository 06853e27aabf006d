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

/// Something to print, under the name that the printer's queue shows.
struct PrintJob
{
    std::string name;
    PageFrame frame;
    std::unique_ptr<Printout> content;
};

/// What a document window prints by its mode: the list of consists as it is shown, the vehicles of
/// a consist as they stand in the editor, or the picture of a 3D view. RuntimeError 5 where there
/// is no picture.
PrintJob JobOf(frmDocument &window, const install::Installation &installation);

/// A report of a results window.
PrintJob ResultsJob(const std::string &caption, const std::string &text);

} // namespace app
