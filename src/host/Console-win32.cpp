// SPDX-License-Identifier: MIT
#include "host/Console.h"

#include "host/CommandLine.h"
#include "host/Disk-win32.h"
#include "host/Windows-win32.h"

#include <algorithm>
#include <memory>

#include <shellapi.h>

namespace host {
namespace {

/// Returns the console of the program that started this one, which has windows and no console.
HANDLE consoleOfStarter()
{
    static const HANDLE console =
        AttachConsole(ATTACH_PARENT_PROCESS)
            ? CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr)
            : INVALID_HANDLE_VALUE;
    return console;
}

HANDLE handleOf(Stream stream)
{
    const HANDLE handle =
        GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    return handle ? handle : consoleOfStarter();
}

WriteFailure failed(DWORD error)
{
    const bool readerGone = error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA;
    return {disk::FailureOf(error, ErrorNumber::PathNotFound).reason, readerGone};
}

std::optional<WriteFailure> writeCharacters(HANDLE console, std::wstring_view text)
{
    constexpr std::size_t kAtOnce = 8192; // older consoles reject much more
    while (!text.empty()) {
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min(text.size(), kAtOnce));
        if (!WriteConsoleW(console, text.data(), wanted, &written, nullptr))
            return failed(GetLastError());
        text.remove_prefix(written);
    }
    return std::nullopt;
}

std::optional<WriteFailure> writeBytes(HANDLE file, std::string_view text)
{
    constexpr std::size_t kAtOnce = 1u << 26;
    while (!text.empty()) {
        DWORD written = 0;
        const auto wanted = static_cast<DWORD>(std::min(text.size(), kAtOnce));
        if (!WriteFile(file, text.data(), wanted, &written, nullptr))
            return failed(GetLastError());
        if (written == 0)
            return failed(ERROR_DISK_FULL);
        text.remove_prefix(written);
    }
    return std::nullopt;
}

} // namespace

std::vector<std::string> Arguments(int, char **)
{
    int count = 0;
    const std::unique_ptr<wchar_t *, HLOCAL(WINAPI *)(HLOCAL)> words(
        reinterpret_cast<wchar_t **>(CommandLineToArgvW(GetCommandLineW(), &count)), LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i)
        arguments.push_back(disk::Narrow(words.get()[i]));
    return arguments;
}

std::string CommandLine(int, char **)
{
    return std::string(AfterProgramName(disk::Narrow(GetCommandLineW())));
}

std::optional<WriteFailure> WriteTo(Stream stream, std::string_view text)
{
    const HANDLE handle = handleOf(stream);
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode))
        return writeCharacters(handle, disk::Wide(text));
    return writeBytes(handle, text);
}

bool IsTerminal(Stream stream)
{
    DWORD mode = 0;
    return GetConsoleMode(handleOf(stream), &mode) != 0;
}

} // namespace host
