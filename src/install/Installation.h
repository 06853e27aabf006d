// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace install {

/// The location of Train Simulator: the folder that the user chose, or else the registered one.
class Installation
{
public:
    /// Returns the override if there is one, otherwise the registered folder (possibly ""), as
    /// stored.
    std::string CurrentFolder() const;
    /// Returns the folder that Train Simulator registered, or "". Reads it again on each call.
    static std::string RegisteredFolder();
    /// Stores the location as the override. Clears the override if the text is empty or "$MSTS"
    /// (letter case and surrounding blanks ignored); stores other text as given.
    void SetLocation(std::string_view location);
    const std::string &Override() const { return m_override; }

    /// Returns CurrentFolder() & "\" & a relative path such as "Trains\Consists".
    std::string PathOf(std::string_view relative) const;
    /// Returns the file of a consist by its list name.
    std::string ConsistPath(std::string_view name) const;

private:
    std::string m_override;
};

/// Represents the registered folder wherever a location is stored or typed.
inline constexpr std::string_view kRegisteredToken = "$MSTS";

/// Returns the location to set when the user types or chooses a folder: the token for exactly the
/// registered folder, otherwise the folder (see FolderTyped in install/TypedLocation.h).
std::string ChosenLocation(std::string_view typed);

/// Returns the full path of the separately installed shape viewer, or "".
std::string FindShapeViewer();

} // namespace install
