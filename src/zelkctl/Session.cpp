// SPDX-License-Identifier: MIT
#include "zelkctl/Session.h"

#include "host/Console.h"
#include "host/OutOfMemory.h"
#include "host/Path.h"
#include "host/Product.h"
#include "host/Settings.h"
#include "install/StockFiles.h"

#include <algorithm>

namespace zelkctl {
namespace {

/// Returns an error's reason without the file's name, which details begin with. The name of another
/// file that begins with the same letters (x.sd for x.s) is part of the reason.
std::string reasonOf(const host::RuntimeError &error, const std::string &file)
{
    std::string reason = error.what();
    const std::size_t end = file.size();
    const bool names = reason.starts_with(file) && end < reason.size() &&
                       (reason[end] == ':' || reason[end] == ',');
    const std::size_t start = reason.find_first_not_of(":, ", end);
    if (!names || start == reason.npos)
        return reason;
    const bool missing = error.Code() == host::ErrorNumber::FileNotFound ||
                         error.Code() == host::ErrorNumber::PathNotFound;
    return missing ? error.Text() : reason.substr(start);
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
        installation.SetLocation(
            host::UserSettings()->Read(host::setting::kInstallation).value_or(""));
    }
    const std::string folder = installation.CurrentFolder();
    if (folder.empty())
        throw Failure("no Train Simulator folder: use --msts DIR");
    if (!session.files.FolderExists(folder))
        throw Failure(folder + ": error 76: Path not found");
    installation.SetLocation(host::path::Absolute(folder));
    return installation;
}

std::string ConsistFile(Session &session, const install::Installation &installation,
                        const std::string &name)
{
    const bool isFile = host::path::HasExtension(name, "con");
    const std::string listed = isFile ? host::path::BaseName(name) : name;
    const auto here = host::GamePath::Of(isFile ? name : "");
    for (const std::string &path :
         {here ? here->text : std::string(), installation.ConsistPath(listed)})
        if (const auto found = session.files.FindFile(path))
            return host::path::FromDisk(*found);
    throw Failure(name + ": error 53: File not found");
}

std::string VehicleFile(Session &session, const std::string &name)
{
    const auto foundAt = [&](const std::string &path) {
        const auto found = session.files.FindFile(path);
        return found ? host::path::Absolute(host::path::FromDisk(*found)) : std::string();
    };
    if (const auto here = host::GamePath::Of(name))
        if (std::string path = foundAt(here->text); !path.empty())
            return path;
    if (std::count_if(name.begin(), name.end(), host::IsSeparator) == 1) {
        const std::string stock = OpenInstallation(session).PathOf(install::kTrainset);
        if (std::string path = foundAt(host::path::Join(stock, name)); !path.empty())
            return path;
    }
    throw Failure(name + ": error 53: File not found");
}

void TellClosed(Session &session, const std::string &folder)
{
    session.out.Flush();
    host::WriteTo(host::Stream::Error,
                  "zelkctl: " + folder +
                      ": error 75: " + host::ClassicText(host::ErrorNumber::PathFileAccess) + '\n');
    session.exitCode = kCouldNotRun;
}

std::string NumberedReason(const std::string &file, const host::RuntimeError &error)
{
    return "error " + std::to_string(error.Number()) + ": " + reasonOf(error, file);
}

void NamingFile(const std::string &file, const std::function<void()> &work)
{
    try {
        host::NamingIfOutOfMemory(file, work);
    } catch (const host::RuntimeError &error) {
        throw Failure((file.empty() ? "\"\"" : file) + ": " + NumberedReason(file, error));
    }
}

} // namespace zelkctl
