// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Read-only text values of the machine-wide registry hive. Where there is no registry, they come
/// from the machine store, an ini file whose sections are key paths and whose entries are values
/// ($ZELK_REGISTRY, else zelk/registry.ini in the configuration folders), and then from the
/// system.reg of the Wine prefix ($WINEPREFIX, else ~/.wine), whose Windows paths are translated
/// through the prefix's drives. The 32-bit view is asked first, then the 64-bit one.
namespace Registry {

/// The text of a value under a key such as "SOFTWARE\Microsoft\Microsoft Games\Train
/// Simulator\1.0", cut at its first NUL; "" when key or value is missing or cannot be read. Read
/// fresh at every call.
std::string QueryValue(std::string_view key, std::string_view value);

/// A Windows path from the registry ("C:\Games\x") as this machine's own: on Windows unchanged,
/// elsewhere through the drives of the Wine prefix, spelled as the disk has it where something is
/// there. Other text, and a path on a drive that the prefix does not have, comes back unchanged.
std::string PathOnThisMachine(std::string_view windowsPath);

} // namespace Registry
