// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace app {
class CheckHost;
}

/// Small program-wide helpers.
namespace modZELK {

/// Returns the caption of the main window: "ZELK v1.0-75".
std::string MainCaption();

/// Returns the title of the About box: "ZELK V1.0-75".
std::string AboutCaption();

/// Returns the caption of a text window: "Properties of " & title. If the title begins with "#",
/// the caption is the rest of the title.
std::string TextWindowCaption(std::string_view title);
/// Returns the texts of the selected items, in list order, joined by "|".
std::string SelectedItemsText(const std::vector<std::string> &selected);
/// Opens a results window with this text. TextWindowCaption gives the caption.
void ShowTextWindow(app::CheckHost &host, std::string_view title, const std::string &text);
/// Returns referringItem & " references MISSING " & kind & " file " & file.
std::string MissingReferenceText(std::string_view file, std::string_view referringItem,
                                 std::string_view kind);
/// Converts degrees to radians, in single precision.
float DegreesToRadians(float degrees);
/// Appends one line to the trace log (host/Folders.h).
void WriteLog(std::string_view text);

} // namespace modZELK
