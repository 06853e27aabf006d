// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// What a run of a program left: its exit code (128 + signal when it was killed) and all that it
/// wrote.
struct Outcome
{
    int code = 0;
    std::string out, err;

    friend bool operator==(const Outcome &, const Outcome &) = default;
    friend std::ostream &operator<<(std::ostream &stream, const Outcome &outcome)
    {
        return stream << "exit " << outcome.code << "\nout: " << outcome.out
                      << "\nerr: " << outcome.err;
    }
};

/// Where the standard output of a run goes.
enum class Stdout
{
    Captured,
    Closed,
    FullDisk,
    BrokenPipe ///< a pipe whose reader has ended
};

/// The outputs that this system cannot write to, and its words for why.
std::vector<std::pair<Stdout, std::string>> UnwritableOutputs();

/// "Z\u00fcge" as a name that some old program gave a file; no UTF-8 where that is possible.
extern const char *const kForeignZuege;

/// A user and a machine for programs of ours that are nobody's: a home folder of its own, and no
/// settings or registered folder but those that the test puts there (KnownFolders on `home`).
struct Machine
{
    std::filesystem::path home; ///< an existing folder, where programs also run

    /// Runs a program and waits for its end.
    Outcome Run(const std::string &program, const std::vector<std::string> &arguments,
                Stdout out = Stdout::Captured) const;
};

} // namespace support
