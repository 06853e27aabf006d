// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The temporary files that a save writes beside its target.
namespace host::disk {

/// The process that writes a temporary file.
struct Writer
{
    /// Identifies the machine, or the part of it that has its own process numbers (a container, a
    /// Wine prefix); 16 hexadecimal digits.
    std::string machine;
    std::uint64_t process = 0;
    /// When the process started, in units of the system. Together with `process`, no other process
    /// has it. 0 if unknown.
    std::uint64_t start = 0;

    friend bool operator==(const Writer &, const Writer &) = default;
};

Writer ThisProcess();
/// False only if the writer, which is of this machine, has certainly ended.
bool MayRun(const Writer &writer);

/// Returns a name that no other running process uses, without extension: temporary files end in
/// ".tmp".
std::string TemporaryName(const Writer &writer, unsigned number);
/// Returns the writer of a temporary file; nothing for a file with any other name.
std::optional<Writer> WriterOf(std::string_view name);

/// Deletes the temporary files in a folder whose writers were killed. Keeps those of running
/// processes and those that another machine has written into a shared folder. Keeps a file with an
/// ".old" file beside it: the two were to be exchanged. Reports no failure, because the next save
/// tries again.
void RemoveLeftovers(const std::string &folder);

/// Returns 16 hexadecimal digits for a text, the same in every program: the `machine` of a Writer
/// for a text that identifies the machine.
std::string MarkOf(std::string_view text);

} // namespace host::disk
