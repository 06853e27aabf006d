// SPDX-License-Identifier: MIT
#include "host/Process.h"

#include "host/Folders.h"
#include "host/Path.h"
#include "host/RuntimeError.h"

#include <cerrno>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

extern char **environ;

namespace host {

int RunAndWait(const std::string &program, const std::vector<std::string> &arguments)
{
    std::vector<char *> list{const_cast<char *>(program.c_str())};
    for (const std::string &argument : arguments)
        list.push_back(const_cast<char *>(argument.c_str()));
    list.push_back(nullptr);
    pid_t child = 0;
    if (const int error =
            posix_spawn(&child, program.c_str(), nullptr, nullptr, list.data(), environ))
        throw RuntimeError(ErrorNumber::FileNotFound,
                           program + ": " + std::generic_category().message(error));
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR)
        continue;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void LowerThreadPriority()
{
#ifdef __linux__
    // On Linux each thread has its own priority; elsewhere this would slow the whole program down.
    constexpr int kLow = 10;
    setpriority(PRIO_PROCESS, 0, kLow);
#endif
}

std::string ProgramBeside(const std::string &name)
{
    return path::Join(ExecutableFolder(), name);
}

} // namespace host
