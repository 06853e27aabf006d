// SPDX-License-Identifier: MIT
#include "host/Process.h"

#include "host/Disk-win32.h"
#include "host/Folders.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Windows-win32.h"

namespace host {
namespace {

/// Returns an argument in the form that programs parse: in quotes, with backslashes doubled before
/// a quote.
std::wstring quoted(const std::wstring &argument)
{
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    text.append(backslashes, L'\\');
    return text + L'"';
}

} // namespace

int RunAndWait(const std::string &program, const std::vector<std::string> &arguments)
{
    const std::wstring name = disk::Wide(program);
    std::wstring line = quoted(name);
    for (const std::string &argument : arguments)
        line += L' ' + quoted(disk::Wide(argument));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(name.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &start, &process))
        throw RuntimeError(ErrorNumber::FileNotFound, program + ": it cannot be started");
    const disk::Handle thread(process.hThread), child(process.hProcess);
    DWORD code = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &code);
    return static_cast<int>(code);
}

void LowerThreadPriority()
{
    SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_BELOW_NORMAL);
}

std::string ProgramBeside(const std::string &name)
{
    return path::Join(ExecutableFolder(), name + ".exe");
}

} // namespace host
