// SPDX-License-Identifier: MIT
#include "Session.h"

#include "host/Console.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"

namespace zelkctl {
namespace {

/// What the error says beyond its classic text and the file's name, which details begin with.
std::string reasonOf(const host::RuntimeError &error, const std::string &file)
{
    std::string reason = error.Detail();
    if (reason.starts_with(file))
        reason.erase(0, file.size());
    reason.erase(0, reason.find_first_not_of(":, "));
    return reason;
}

} // namespace

install::Installation OpenInstallation(Session &session)
{
    install::Installation installation;
    if (session.msts) {
        if (session.msts->empty())
            throw Failure("--msts: no folder given");
        installation.SetLocation(*session.msts);
    } else {
        installation.SetLocation(host::UserSettings()->Read("MSTSDir").value_or(""));
    }
    const std::string folder = installation.CurrentFolder();
    if (folder.empty())
        throw Failure("no Train Simulator folder: use --msts DIR");
    if (!session.files.FolderExists(folder))
        throw Failure(folder + ": error 76: Path not found");
    return installation;
}

void TellClosed(Session &session, const std::string &folder)
{
    session.out.Flush();
    host::WriteTo(host::Stream::Error,
                  "zelkctl: " + folder +
                      ": error 75: " + host::ClassicText(host::ErrorNumber::PathFileAccess) + '\n');
    session.exitCode = kCouldNotRun;
}

void NamingFile(const std::string &file, const std::function<void()> &work)
{
    try {
        work();
    } catch (const host::RuntimeError &error) {
        std::string line = file + ": error " + std::to_string(error.Number()) + ": " + error.Text();
        // A missing file or folder is said by the classic text already.
        const bool missing = error.Code() == host::ErrorNumber::FileNotFound ||
                             error.Code() == host::ErrorNumber::PathNotFound;
        const std::string reason = reasonOf(error, file);
        if (!missing && !reason.empty() && reason != error.Text())
            line += " (" + reason + ")";
        throw Failure(line);
    }
}

} // namespace zelkctl
