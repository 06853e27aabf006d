// SPDX-License-Identifier: MIT
#include "app/ProgramStart.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"

namespace app {

ProgramStart StartOf(host::GameFiles &files, const std::string &path,
                     const std::vector<std::string> &arguments)
{
    const auto file = files.FindFile(path);
    if (!file)
        throw host::RuntimeError(host::ErrorNumber::FileNotFound, path + ": there is no such file");
    return {host::path::FromDisk(*file), arguments, host::path::FromDisk(file->parent_path()), {}};
}

} // namespace app
