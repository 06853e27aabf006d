// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

/// What a run of zelkctl left: its exit code (128 + signal when it was killed) and all that it
/// wrote.
struct Outcome
{
    int code = 0;
    std::string out, err;

    friend bool operator==(const Outcome &, const Outcome &) = default;
    friend std::ostream &operator<<(std::ostream &stream, const Outcome &outcome);
};

/// Where the standard output of a run goes.
enum class Stdout
{
    Captured,
    Closed,
    FullDisk,
    BrokenPipe
};

/// A user and a machine for zelkctl that are nobody's: a home folder of its own, and no settings
/// or registered folder but those that the test puts there.
struct Machine
{
    std::filesystem::path home;                ///< an existing folder, where zelkctl also runs
    std::vector<std::string> environment = {}; ///< more variables, "NAME=value"

    /// Runs the built program and waits for its end.
    Outcome Run(const std::vector<std::string> &arguments, Stdout out = Stdout::Captured) const;
};
