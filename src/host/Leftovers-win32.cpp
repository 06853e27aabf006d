// SPDX-License-Identifier: MIT
#include "host/Leftovers.h"

#include "host/Disk-win32.h"
#include "host/Windows-win32.h"

#include <limits>

namespace host::disk {
namespace {

/// Returns when a process started, in steps of 100 ns since 1601; 0 if unknown.
std::uint64_t startOf(HANDLE process)
{
    FILETIME start = {}, end = {}, system = {}, user = {};
    if (!GetProcessTimes(process, &start, &end, &system, &user))
        return 0;
    return std::uint64_t{start.dwHighDateTime} << 32 | start.dwLowDateTime;
}

/// Returns the identity that the system, or a Wine prefix, got when it was installed; "" if it
/// cannot be read.
std::wstring installedIdentity()
{
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Cryptography", 0,
                      KEY_QUERY_VALUE | KEY_WOW64_64KEY, &key) != ERROR_SUCCESS)
        return {};
    wchar_t text[128] = {};
    DWORD bytes = sizeof text - sizeof *text, type = 0;
    const LSTATUS status = RegQueryValueExW(key, L"MachineGuid", nullptr, &type,
                                            reinterpret_cast<BYTE *>(text), &bytes);
    RegCloseKey(key);
    return status == ERROR_SUCCESS && type == REG_SZ ? std::wstring(text) : std::wstring();
}

std::string machineText()
{
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD length = MAX_COMPUTERNAME_LENGTH + 1;
    if (!GetComputerNameW(name, &length))
        length = 0;
    return "windows " + Narrow(installedIdentity()) + ' ' + Narrow({name, length});
}

} // namespace

Writer ThisProcess()
{
    return {MarkOf(machineText()), GetCurrentProcessId(), startOf(GetCurrentProcess())};
}

bool MayRun(const Writer &writer)
{
    if (writer.process == 0 || writer.process > std::numeric_limits<DWORD>::max())
        return true; // a name that this program has not made
    const Handle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE,
                                     static_cast<DWORD>(writer.process)));
    if (!process)
        return GetLastError() != ERROR_INVALID_PARAMETER; // the error for an unknown number
    // The number stays in use as long as another program holds the ended process open.
    if (WaitForSingleObject(process.Get(), 0) == WAIT_OBJECT_0)
        return false;
    const std::uint64_t start = startOf(process.Get());
    return start == 0 || writer.start == 0 || start == writer.start;
}

} // namespace host::disk
