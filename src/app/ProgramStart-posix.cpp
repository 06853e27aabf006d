// SPDX-License-Identifier: MIT
#include "app/ProgramStart.h"

#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace app {

namespace fs = std::filesystem;

namespace {

bool isProgram(const fs::path &file)
{
    std::error_code error;
    return fs::is_regular_file(file, error) && access(file.c_str(), X_OK) == 0;
}

/// Finds Wine under the names that distributions give it; returns "" if it is missing.
std::string findWine()
{
    for (const char *name : {"wine", "wine-stable", "wine64"})
        for (const std::string &folder : host::Split(host::Environment("PATH"), ':'))
            if (const fs::path file = fs::path(folder) / name;
                file.is_absolute() && isProgram(file))
                return host::path::FromDisk(file);
    return {};
}

std::string prefixAbove(const fs::path &file)
{
    std::error_code error;
    for (fs::path folder = file.parent_path(); folder != folder.root_path();
         folder = folder.parent_path())
        if (fs::is_directory(folder / "dosdevices", error))
            return host::path::FromDisk(folder);
    return {};
}

/// Returns the Wine prefix of a file. The simulator's folder may be a link into a prefix.
std::string prefixOf(const fs::path &file)
{
    const std::string prefix = prefixAbove(file);
    std::error_code error;
    return prefix.empty() ? prefixAbove(fs::weakly_canonical(file, error)) : prefix;
}

} // namespace

ProgramStart StartOf(host::GameFiles &files, const std::string &path,
                     const std::vector<std::string> &arguments)
{
    const auto file = files.FindFile(path);
    if (!file)
        throw host::RuntimeError(host::ErrorNumber::FileNotFound, path + ": there is no such file");
    ProgramStart start{findWine(),
                       {host::path::FromDisk(*file)},
                       host::path::FromDisk(file->parent_path()),
                       prefixOf(*file)};
    start.arguments.insert(start.arguments.end(), arguments.begin(), arguments.end());
    return start;
}

} // namespace app
