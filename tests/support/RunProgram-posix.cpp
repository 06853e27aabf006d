// SPDX-License-Identifier: MIT
#include "support/RunProgram.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace support {

const char *const kForeignZuege = "Z\xfcge";

namespace {

/// A file for the program's output, deleted when it is closed.
class CaptureFile
{
public:
    explicit CaptureFile(std::filesystem::path path)
        : m_path(std::move(path))
    {
        std::ofstream made(m_path);
    }
    ~CaptureFile() { std::filesystem::remove(m_path); }
    CaptureFile(const CaptureFile &) = delete;
    CaptureFile &operator=(const CaptureFile &) = delete;

    const std::filesystem::path &Path() const { return m_path; }
    std::string Text() const
    {
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path m_path;
};

std::vector<char *> pointersTo(std::vector<std::string> &texts)
{
    std::vector<char *> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string &text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// The working folder and the open files of the started program.
class Streams
{
public:
    Streams() { posix_spawn_file_actions_init(&m_actions); }
    ~Streams() { posix_spawn_file_actions_destroy(&m_actions); }
    Streams(const Streams &) = delete;
    Streams &operator=(const Streams &) = delete;

    void StandIn(const std::filesystem::path &folder)
    {
        posix_spawn_file_actions_addchdir_np(&m_actions, folder.c_str());
    }
    void Open(int descriptor, const std::filesystem::path &file)
    {
        posix_spawn_file_actions_addopen(&m_actions, descriptor, file.c_str(), O_WRONLY, 0);
    }
    void Close(int descriptor) { posix_spawn_file_actions_addclose(&m_actions, descriptor); }
    /// Opens a pipe that nobody reads.
    void OpenBrokenPipe(int descriptor)
    {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        close(ends[0]);
        posix_spawn_file_actions_adddup2(&m_actions, ends[1], descriptor);
        m_pipe = ends[1];
    }
    int RunAndWait(std::vector<std::string> command, std::vector<std::string> environment)
    {
        pid_t child = 0;
        int status = 0;
        const bool started =
            posix_spawn(&child, command[0].c_str(), &m_actions, nullptr, pointersTo(command).data(),
                        pointersTo(environment).data()) == 0;
        if (m_pipe >= 0)
            close(m_pipe);
        if (!started || waitpid(child, &status, 0) != child)
            throw std::runtime_error("cannot run " + command[0]);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

private:
    posix_spawn_file_actions_t m_actions{};
    int m_pipe = -1;
};

std::vector<std::string> environmentOf(const Machine &machine)
{
    std::vector<std::string> variables;
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME",
                             "XDG_STATE_HOME", "WINEPREFIX"})
        variables.push_back(std::string(name) + "=" + machine.home.string());
    // OpenGL needs the display, and scripts/asan sets the others.
    for (const char *name : {"DISPLAY", "XAUTHORITY", "LD_PRELOAD", "LSAN_OPTIONS"})
        if (const char *value = std::getenv(name))
            variables.push_back(std::string(name) + "=" + value);
    return variables;
}

} // namespace

std::vector<std::pair<Stdout, std::string>> UnwritableOutputs()
{
    return {{Stdout::Closed, "Bad file descriptor"}, {Stdout::FullDisk, "No space left on device"}};
}

Outcome Machine::Run(const std::string &program, const std::vector<std::string> &arguments,
                     Stdout output) const
{
    const CaptureFile out(home / ".captured-out"), err(home / ".captured-err");
    Streams streams;
    streams.StandIn(home);
    streams.Open(STDERR_FILENO, err.Path());
    switch (output) {
    case Stdout::Captured:
        streams.Open(STDOUT_FILENO, out.Path());
        break;
    case Stdout::Closed:
        streams.Close(STDOUT_FILENO);
        break;
    case Stdout::FullDisk:
        streams.Open(STDOUT_FILENO, "/dev/full");
        break;
    case Stdout::BrokenPipe:
        streams.OpenBrokenPipe(STDOUT_FILENO);
        break;
    }
    std::vector<std::string> command{program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    const int code = streams.RunAndWait(std::move(command), environmentOf(*this));
    return {code, out.Text(), err.Text()};
}

} // namespace support
