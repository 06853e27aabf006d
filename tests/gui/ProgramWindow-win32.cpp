// SPDX-License-Identifier: MIT
#include "ProgramWindow.h"

#include "host/Disk-win32.h"
#include "host/Windows-win32.h"

namespace {

struct Search
{
    DWORD process;
    std::wstring title;
    HWND found = nullptr;
};

BOOL CALLBACK look(HWND window, LPARAM parameter)
{
    auto &search = *reinterpret_cast<Search *>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t title[200] = {};
    GetWindowTextW(window, title, 200);
    if (process == search.process && IsWindowVisible(window) && title == search.title)
        search.found = window;
    return search.found == nullptr;
}

} // namespace

bool CanCloseWindows()
{
    return true;
}

bool CloseWindowOf(long long process, const std::string &title)
{
    Search search = {static_cast<DWORD>(process), host::disk::Wide(title)};
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.found && PostMessageW(search.found, WM_CLOSE, 0, 0);
}
