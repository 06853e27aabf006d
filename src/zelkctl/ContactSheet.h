// SPDX-License-Identifier: MIT
#pragma once

#include "content/SheetText.h"
#include "zelkctl/Session.h"

#include <string>
#include <vector>

namespace zelkctl {

/// A page of pictures of vehicles.
struct ContactSheetRequest
{
    std::vector<std::string> consists; ///< by name or as files; all vehicles if there are none
    std::string filter;                ///< for the stock folders
    std::string out;
    bool isPage = false; ///< HTML, not PNG
    int width = 0;       ///< of each picture in pixels; its height is the half
    content::UnitSystem units = content::UnitSystem::Metric;
    bool loads = true;
};

/// Draws the vehicles of the installation, or the units of consists in train order, each with its
/// name and figures, and writes the page. Throws Failure if that is not possible. A vehicle that
/// cannot be drawn is on the page with the reason. Requires a QGuiApplication.
void DrawContactSheet(Session &session, const ContactSheetRequest &request);

} // namespace zelkctl
