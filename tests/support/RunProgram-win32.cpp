// SPDX-License-Identifier: MIT
#include "support/RunProgram.h"

#include "host/Disk-win32.h"
#include "host/Windows-win32.h"
#include "support/Environment.h"

#include <list>
#include <stdexcept>
#include <thread>

namespace disk = host::disk;

namespace support {

const char *const kForeignZuege = "Z\u00fcge";

namespace {

/// A pipe whose writing end child processes inherit.
class Pipe
{
public:
    Pipe()
    {
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        HANDLE out = nullptr, in = nullptr;
        if (!CreatePipe(&out, &in, &inherited, 0))
            throw std::runtime_error("no pipe");
        m_out.emplace(out);
        m_in.emplace(in);
        SetHandleInformation(out, HANDLE_FLAG_INHERIT, 0);
    }
    HANDLE End() const { return m_in->Get(); }
    void CloseEnd() { m_in.reset(); }
    void CloseReader() { m_out.reset(); }
    std::string ReadAll() const
    {
        std::string text;
        char piece[4096];
        DWORD got = 0;
        while (ReadFile(m_out->Get(), piece, sizeof piece, &got, nullptr) && got > 0)
            text.append(piece, got);
        return text;
    }

private:
    std::optional<disk::Handle> m_out, m_in;
};

/// Quotes an argument by the rules of Windows command lines: a backslash is special only before a
/// quote.
std::wstring quoted(const std::string &argument)
{
    std::wstring out = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : disk::Wide(argument)) {
        if (c == L'"')
            out.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        out += c;
    }
    return out.append(backslashes, L'\\') + L'"';
}

std::list<ScopedVariable> environmentOf(const Machine &machine)
{
    std::list<ScopedVariable> variables;
    for (const char *name : {"USERPROFILE", "APPDATA", "LOCALAPPDATA", "ProgramData"})
        variables.emplace_back(name, disk::Narrow(machine.home.native()));
    return variables;
}

int runAndWait(std::wstring command, const Machine &machine, HANDLE out, HANDLE err)
{
    const std::list<ScopedVariable> variables = environmentOf(machine);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = out;
    start.hStdError = err;
    PROCESS_INFORMATION made = {};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                        machine.home.c_str(), &start, &made))
        throw std::runtime_error("cannot run " + disk::Narrow(command));
    const disk::Handle process(made.hProcess), thread(made.hThread);
    DWORD code = 0;
    WaitForSingleObject(process.Get(), INFINITE);
    GetExitCodeProcess(process.Get(), &code);
    return static_cast<int>(code);
}

Outcome runOnce(const std::wstring &command, const Machine &machine, Stdout output)
{
    Pipe out, err;
    if (output == Stdout::BrokenPipe)
        out.CloseReader();
    Outcome outcome;
    {
        const std::jthread readsOut([&] {
            if (output == Stdout::Captured)
                outcome.out = out.ReadAll();
        });
        const std::jthread readsErr([&] { outcome.err = err.ReadAll(); });
        outcome.code =
            runAndWait(command, machine, output == Stdout::Closed ? nullptr : out.End(), err.End());
        out.CloseEnd();
        err.CloseEnd();
    }
    return outcome;
}

} // namespace

std::vector<std::pair<Stdout, std::string>> UnwritableOutputs()
{
    const auto reason = [](DWORD error) {
        return disk::FailureOf(error, host::ErrorNumber::PathNotFound).reason;
    };
    return {{Stdout::Closed, reason(ERROR_INVALID_HANDLE)}};
}

Outcome Machine::Run(const std::string &program, const std::vector<std::string> &arguments,
                     Stdout output) const
{
    std::wstring command = quoted(program);
    for (const std::string &argument : arguments)
        command += L' ' + quoted(argument);
    Outcome outcome = runOnce(command, *this, output);
    // About once in a thousand starts Wine fails without a message, also when one program starts
    // another. The tested programs always say why they fail; crashes have negative codes.
    if (output == Stdout::Captured && outcome.code > 0 && outcome.out.empty() &&
        outcome.err.empty())
        outcome = runOnce(command, *this, output);
    return outcome;
}

} // namespace support
