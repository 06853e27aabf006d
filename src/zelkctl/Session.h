// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "install/Installation.h"
#include "zelkctl/Output.h"

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace zelkctl {

/// The reason why a command failed, as one line for the user.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The state that the commands of one run share.
struct Session
{
    Output out;
    host::GameFiles files;
    std::optional<std::string> msts; ///< the folder named on the command line
    int exitCode = 0;                ///< of a command that ran
};

/// The exit code if something could not be done.
inline constexpr int kCouldNotRun = 2;

/// Returns the installation to work on, with its absolute path: the folder named on the command
/// line, else the one set in ZELK, else the registered one. Throws Failure if there is none.
install::Installation OpenInstallation(Session &session);

/// Returns the path of a consist, given by its list name or as a file. Throws Failure if there is
/// none.
std::string ConsistFile(Session &session, const install::Installation &installation,
                        const std::string &name);

/// Returns the path of a vehicle, given as a file or as FOLDER/NAME.wag. Throws Failure if there is
/// none.
std::string VehicleFile(Session &session, const std::string &name);

/// Reports that a folder cannot be listed; the command continues and ends with kCouldNotRun.
void TellClosed(Session &session, const std::string &folder);

/// Returns what went wrong with `file`, without its name: "error 91: there is no Train block".
std::string NumberedReason(const std::string &file, const host::RuntimeError &error);

/// Runs `work` and turns a run-time error in it into a Failure that names `file` and the reason:
/// "x.con: error 91: there is no Train block". Throws host::OutOfMemory for `file` if the memory
/// does not suffice.
void NamingFile(const std::string &file, const std::function<void()> &work);

} // namespace zelkctl
