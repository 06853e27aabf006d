// SPDX-License-Identifier: MIT
#include "install/Installation.h"

#include "host/Path.h"
#include "host/Text.h"
#include "install/Registry.h"
#include "install/TypedLocation.h"

namespace install {
namespace {

constexpr std::string_view kTrainSimulatorKey =
    R"(SOFTWARE\Microsoft\Microsoft Games\Train Simulator\1.0)";
constexpr std::string_view kSetupKey =
    R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\ST6UNST #)";
constexpr std::string_view kViewer = "QView.exe";
constexpr int kSetupEntries = 9;

/// Returns the viewer beside the log file that its setup entry names in double quotes.
std::string viewerBeside(std::string_view uninstallString)
{
    const std::size_t quote = uninstallString.find('"');
    if (quote == std::string_view::npos)
        return {};
    const std::string_view quoted = uninstallString.substr(quote + 1);
    std::size_t separator = quoted.rfind('\\');
    if (separator == std::string_view::npos) // a store written on a machine with other paths
        separator = quoted.rfind('/');
    const std::string_view folder = quoted.substr(0, separator + 1);
    return Registry::PathOnThisMachine(std::string(folder).append(kViewer));
}

} // namespace

std::string Installation::CurrentFolder() const
{
    return m_override.empty() ? RegisteredFolder() : m_override;
}

std::string Installation::RegisteredFolder()
{
    return Registry::QueryValue(kTrainSimulatorKey, "Path");
}

void Installation::SetLocation(std::string_view location)
{
    const std::string_view trimmed = host::TrimBlanks(location);
    const bool isRegistered = trimmed.empty() || host::EqualsNoCase(trimmed, kRegisteredToken);
    m_override = isRegistered ? std::string_view() : location;
}

std::string Installation::PathOf(std::string_view relative) const
{
    return host::path::Join(CurrentFolder(), relative);
}

std::string Installation::ConsistPath(std::string_view name) const
{
    return PathOf(std::string(R"(Trains\Consists\)").append(name).append(".con"));
}

std::string ChosenLocation(std::string_view typed)
{
    const std::string folder = FolderTyped(typed), registered = Installation::RegisteredFolder();
    const bool isRegistered = typed == registered || folder == FolderTyped(registered);
    return isRegistered ? std::string(kRegisteredToken) : folder;
}

std::string FindShapeViewer()
{
    for (int entry = 1; entry <= kSetupEntries; ++entry) {
        const std::string key = std::string(kSetupKey) + std::to_string(entry);
        if (Registry::QueryValue(key, "ApplicationName") == kViewer)
            return viewerBeside(Registry::QueryValue(key, "UninstallString"));
    }
    return {};
}

} // namespace install
