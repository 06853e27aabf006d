// SPDX-License-Identifier: MIT
#include "host/Leftovers.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>
#include <system_error>

#include <unistd.h>

namespace host::disk {
namespace {

std::string firstLineOf(const char *path)
{
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

/// Returns when a process started, in clock ticks since the machine started; 0 if unknown.
std::uint64_t startOf(const std::string &process)
{
    constexpr int kFieldsBefore = 19; // between the program's name and the start
    std::ifstream file("/proc/" + process + "/stat");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::size_t name = text.rfind(')'); // the name may contain blanks and brackets
    if (name == text.npos)
        return 0;
    std::istringstream fields(text.substr(name + 1));
    std::string skipped;
    for (int i = 0; i < kFieldsBefore; ++i)
        fields >> skipped;
    std::uint64_t start = 0;
    return fields >> start ? start : 0;
}

/// Returns a text that is different on every machine, and in every container on it: they have their
/// own process numbers.
std::string machineText()
{
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    std::error_code error;
    const auto processes = std::filesystem::read_symlink("/proc/self/ns/pid", error);
    return "posix " + firstLineOf("/etc/machine-id") + ' ' + name + ' ' + processes.native();
}

} // namespace

Writer ThisProcess()
{
    // Reading it again for each of a thousand files would take longer than writing some of them.
    static const std::string machine = MarkOf(machineText());
    return {machine, static_cast<std::uint64_t>(getpid()), startOf("self")};
}

bool MayRun(const Writer &writer)
{
    if (writer.process == 0 || writer.process > std::numeric_limits<int>::max())
        return true; // a name that this program has not made
    if (kill(static_cast<pid_t>(writer.process), 0) != 0 && errno == ESRCH)
        return false;
    const std::uint64_t start = startOf(std::to_string(writer.process));
    return start == 0 || writer.start == 0 || start == writer.start;
}

} // namespace host::disk
