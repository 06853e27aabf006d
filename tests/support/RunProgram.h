// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// The result of a run: the exit code (128 + signal if the program was killed) and the output.
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

/// The destination of a run's standard output.
enum class Stdout
{
    Captured,
    Closed,
    FullDisk,
    BrokenPipe ///< a pipe whose reader has ended
};

/// Returns the outputs to which writing fails on this system, and the system's messages.
std::vector<std::pair<Stdout, std::string>> UnwritableOutputs();

/// "Z\u00fcge" as an old program may have named a file: not UTF-8 where the system allows that.
extern const char *const kForeignZuege;

/// A private environment for our programs: a home folder, and only the settings and the registered
/// folder that the test stores (KnownFolders on `home`).
struct Machine
{
    std::filesystem::path home; ///< an existing folder, also the working folder

    /// Runs a program and waits until it ends.
    Outcome Run(const std::string &program, const std::vector<std::string> &arguments,
                Stdout out = Stdout::Captured) const;
};

} // namespace support
