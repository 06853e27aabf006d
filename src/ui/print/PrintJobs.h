// SPDX-License-Identifier: MIT
#pragma once

#include "ui/print/Printouts.h"

#include <memory>
#include <string>
#include <vector>

namespace app {

/// Something to print, with the name that the printer's queue shows.
struct PrintJob
{
    std::string name;
    PageFrame frame;
    std::unique_ptr<Printout> content;
};

/// Returns a frame with this title, the facts that are not "" as one line below it, and the
/// program's name and the current time in the footer.
PageFrame FrameOf(const std::string &title, const std::vector<std::string> &facts);

/// Returns the report of a results window.
PrintJob ResultsJob(const std::string &caption, const std::string &text);

} // namespace app
