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

/// A fact about program or machine: what it is, and how it is here.
using Fact = std::pair<QString, QString>;

/// What somebody needs to know who is to find out why something does not work here: versions,
/// system, screens, OpenGL, and the folders that the program uses.
std::vector<Fact> SystemFacts(const install::Installation &installation);

/// The facts a line each, names and values in columns.
QString TextOf(const std::vector<Fact> &facts);

/// The system's own tool for such facts (Windows), or "" where there is none.
std::string FindSystemTool(host::GameFiles &files);

} // namespace about
