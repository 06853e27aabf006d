// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace install {

/// Where Train Simulator lives: the folder that the user chose, or else the one it registered.
class Installation
{
public:
    /// The override when there is one, otherwise the registered folder (possibly ""), as stored.
    std::string CurrentFolder() const;
    /// The folder that Train Simulator registered, read fresh, or "".
    static std::string RegisteredFolder();
    /// Stores the location as the override. Text that is empty or "$MSTS" (letter case and
    /// surrounding blanks ignored) clears it; other text is stored as given.
    void SetLocation(std::string_view location);
    const std::string &Override() const { return m_override; }

    /// CurrentFolder() & "\" & a relative path such as "Trains\Consists".
    std::string PathOf(std::string_view relative) const;
    /// The file of a consist by its list name.
    std::string ConsistPath(std::string_view name) const;

private:
    std::string m_override;
};

/// What stands for the registered folder wherever a location is stored or typed.
inline constexpr std::string_view kRegisteredToken = "$MSTS";

/// The location that is set when the user types or chooses a folder: the token when the folder is
/// exactly the registered one, otherwise the folder (see FolderTyped in install/TypedLocation.h).
std::string ChosenLocation(std::string_view typed);

/// The full path of the separately installed shape viewer, or "".
std::string FindShapeViewer();

} // namespace install
