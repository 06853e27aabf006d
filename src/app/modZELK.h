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

/// The caption of the main window: "ZELK v1.0-75".
std::string MainCaption();

/// The title of the About box: "ZELK V1.0-75".
std::string AboutCaption();

/// The caption of a text window: "Properties of " & title, or, when the title begins with "#", the
/// rest of it alone.
std::string TextWindowCaption(std::string_view title);
/// The texts of the selected items, in list order, joined by "|".
std::string SelectedItemsText(const std::vector<std::string> &selected);
/// Opens a results window with this text, captioned as TextWindowCaption says.
void ShowTextWindow(app::CheckHost &host, std::string_view title, const std::string &text);
/// Referring item & " references MISSING " & kind & " file " & file.
std::string MissingReferenceText(std::string_view file, std::string_view referringItem,
                                 std::string_view kind);
/// Radians, in single precision.
float DegreesToRadians(float degrees);
/// Appends one line to the trace log (host/Folders.h).
void WriteLog(std::string_view text);

} // namespace modZELK
