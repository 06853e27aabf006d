// SPDX-License-Identifier: MIT
#pragma once

#include "Output.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "install/Installation.h"

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace zelkctl {

/// The reason why a command could not be done, as one line for the user.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// What the commands of one run share.
struct Session
{
    Output out;
    host::GameFiles files;
    std::optional<std::string> msts; ///< the folder named on the command line
    int exitCode = 0;                ///< of a command that could be done
};

/// The exit code when something could not be done.
inline constexpr int kCouldNotRun = 2;

/// The installation to work on, by its absolute path: the folder named on the command line, else
/// the one set in ZELK, else the registered one. Throws Failure when there is none.
install::Installation OpenInstallation(Session &session);

/// Reports that a folder's names cannot be read; the command goes on and ends with kCouldNotRun.
void TellClosed(Session &session, const std::string &folder);

/// What went wrong with `file`, without its name: "error 91: there is no Train block".
std::string NumberedReason(const std::string &file, const host::RuntimeError &error);

/// Does the work, and turns a run-time error in it into a Failure that names `file` and the reason:
/// "x.con: error 91: there is no Train block".
void NamingFile(const std::string &file, const std::function<void()> &work);

} // namespace zelkctl
