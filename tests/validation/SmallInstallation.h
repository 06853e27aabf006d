// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"
#include "install/Installation.h"
#include "support/TempFolder.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Contents of files by their paths in the installation folder, with "/". A file without content is
/// removed.
using Changes = std::vector<std::pair<std::string, std::optional<std::string>>>;

/// An installation without faults, except for the given changes: folder A with the wagon "a" and
/// the engine "e", the consist "c" of both, and route R with a shape, a service and an activity
/// that use them.
class SmallInstallation
{
public:
    explicit SmallInstallation(const Changes &changes = {});

    const install::Installation &Location() const { return m_location; }
    host::GameFiles &Files() { return m_files; }
    const support::TempFolder &Folder() const { return m_folder; }
    /// Returns the full path of a file.
    std::string At(const std::string &name) const { return m_folder.At(name); }
    /// Returns a text of the checks with "<M>" for the installation folder and "/" in paths.
    std::string Neutral(std::string text) const;

private:
    support::TempFolder m_folder;
    install::Installation m_location;
    host::GameFiles m_files;
};
