// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthRun.h"
#include "host/GameFiles.h"
#include "support/TempFolder.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Changes to files: paths below the installation folder, with "/", and the new content; nothing
/// removes the file.
using FileChanges = std::vector<std::pair<std::string, std::optional<std::string>>>;

/// An installation on disk with an entry of every kind that is complete in both simulators, except
/// for the changes.
class CompleteInstallation
{
public:
    explicit CompleteInstallation(const FileChanges &changes = {});

    const support::TempFolder &Folder() const { return m_folder; }
    host::GameFiles &Files() { return m_files; }
    content::HealthReport Check(content::HealthOptions options = {});
    /// Returns the problems, one line each in alphabetical order:
    /// "PROFILE SEVERITY RULE ANSWER FILE:WANTS", with paths below the installation folder.
    std::vector<std::string> Problems(content::HealthOptions options = {});
    std::string Line(const content::Finding &finding) const;

private:
    support::TempFolder m_folder;
    host::GameFiles m_files;
};
