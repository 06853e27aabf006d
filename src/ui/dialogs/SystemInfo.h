// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <utility>
#include <vector>

namespace host {
class GameFiles;
}
namespace install {
class Installation;
}

namespace about {

/// A fact about the program or the machine: its name and its value.
using Fact = std::pair<QString, QString>;

/// Returns diagnostic facts for a bug report: versions, system, screens, OpenGL, and the folders
/// that the program uses.
std::vector<Fact> SystemFacts(const install::Installation &installation);

/// Returns the facts as text, one per line, with names and values in columns.
QString TextOf(const std::vector<Fact> &facts);

/// Returns the path of the system's own tool for such facts (Windows); "" if there is none.
std::string FindSystemTool(host::GameFiles &files);

} // namespace about
