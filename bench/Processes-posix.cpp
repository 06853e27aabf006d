// SPDX-License-Identifier: MIT
#include "Processes.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <malloc.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace bench {
namespace {

[[noreturn]] void giveUp(const std::string &what)
{
    std::fprintf(stderr, "%s failed\n", what.c_str());
    std::exit(1);
}

pid_t start(const std::vector<std::string> &command, int output)
{
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string &argument : command)
        arguments.push_back(const_cast<char *>(argument.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0)
        giveUp(command[0]);
    posix_spawn_file_actions_destroy(&actions);
    return child;
}

rusage waitFor(pid_t child, const std::string &what)
{
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        giveUp(what);
    return usage;
}

/// Returns the peak resident memory, in KiB, of a copy of this process that does the work.
long peakOfCopy(const std::function<void()> &work)
{
    std::fflush(nullptr);
#ifdef __GLIBC__
    malloc_trim(0); // so that the work does not use memory that this process has freed
#endif
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    if (child < 0)
        giveUp("fork");
    return waitFor(child, "the measured work").ru_maxrss;
}

} // namespace

void RunQuietly(const std::vector<std::string> &command)
{
    const int null = open("/dev/null", O_WRONLY | O_CLOEXEC);
    waitFor(start(command, null), command[0]);
    close(null);
}

std::string RunForOutput(const std::vector<std::string> &command)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        giveUp("pipe");
    const pid_t child = start(command, ends[1]);
    close(ends[1]);
    std::string output;
    char piece[4096];
    for (ssize_t size; (size = read(ends[0], piece, sizeof piece)) > 0;)
        output.append(piece, static_cast<std::size_t>(size));
    close(ends[0]);
    waitFor(child, command[0]);
    return output;
}

double PeakMebibytes(const std::function<void()> &work)
{
    const long idle = peakOfCopy([] {});
    return static_cast<double>(std::max(0L, peakOfCopy(work) - idle)) / 1024;
}

double ResidentMebibytes()
{
    std::ifstream pages("/proc/self/statm");
    long whole = 0, resident = 0;
    if (!(pages >> whole >> resident))
        giveUp("/proc/self/statm");
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

double ProcessorMilliseconds()
{
    double sum = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(who, &usage);
        for (const timeval &time : {usage.ru_utime, usage.ru_stime})
            sum += 1e3 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e3;
    }
    return sum;
}

void FlushToDisk(const std::filesystem::path &file)
{
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0 || fsync(descriptor) != 0)
        giveUp("flushing " + file.string());
    close(descriptor);
}

std::filesystem::path MakeTemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "zelk-bench-XXXXXX").string();
    if (!mkdtemp(name.data()))
        giveUp("making " + name);
    return name;
}

} // namespace bench
