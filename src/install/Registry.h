// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Reads text values of the machine-wide registry hive. Systems without a registry use two sources.
/// The first is the machine store, an ini file whose sections are key paths and whose entries are
/// values ($ZELK_REGISTRY, else zelk/registry.ini in the configuration folders). The second is
/// system.reg in the Wine prefix ($WINEPREFIX, else ~/.wine); its Windows paths are translated
/// through the drives of the prefix. The 32-bit view comes first, then the 64-bit one.
namespace Registry {

/// Returns the text of a value under a key such as "SOFTWARE\Microsoft\Microsoft Games\Train
/// Simulator\1.0", cut at its first NUL; "" if the key or the value is missing or cannot be read.
/// Reads it again on each call.
std::string QueryValue(std::string_view key, std::string_view value);

/// Translates a Windows path from the registry ("C:\Games\x") to a path on this machine. On
/// Windows, returns it unchanged. On other systems, replaces the drive by the one of the Wine
/// prefix, and spells an existing path as the disk does. Returns other text unchanged, also a path
/// on a drive that the prefix does not have.
std::string PathOnThisMachine(std::string_view windowsPath);

} // namespace Registry
