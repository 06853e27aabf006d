// SPDX-License-Identifier: MIT
#include "app/FileAssociation.h"

#include "app/AssociationBatch-win32.h"
#include "host/Disk-win32.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Windows-win32.h"

#include <shellapi.h>
#include <shlobj.h>

namespace app {

namespace {

/// Consoles read batch files in their own code page.
std::string inConsoleCodePage(const std::string &text)
{
    const std::wstring wide = host::disk::Wide(text);
    const int length = static_cast<int>(wide.size());
    std::string bytes(wide.size() * 4, '\0');
    BOOL lost = FALSE;
    const int written =
        WideCharToMultiByte(CP_OEMCP, WC_NO_BEST_FIT_CHARS, wide.data(), length, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, &lost);
    if (lost || written <= 0)
        throw host::RuntimeError(host::ErrorNumber::InvalidCall,
                                 "a batch file cannot hold the name of this folder:\n" + text);
    bytes.resize(static_cast<std::size_t>(written));
    return bytes;
}

/// The batch file changes settings of the machine, so an administrator has to agree.
void runByShell(const std::string &file)
{
    const std::wstring path = host::disk::Wide(file);
    SHELLEXECUTEINFOW how{};
    how.cbSize = sizeof how;
    how.fMask = SEE_MASK_FLAG_NO_UI;
    how.lpVerb = IsUserAnAdmin() ? L"open" : L"runas";
    how.lpFile = path.c_str();
    how.nShow = SW_HIDE;
    if (ShellExecuteExW(&how))
        return;
    const host::disk::Failure failure =
        host::disk::FailureOf(GetLastError(), host::ErrorNumber::FileNotFound);
    throw host::RuntimeError(failure.number, file + ": " + failure.reason);
}

constexpr wchar_t kConsistClass[] = L"Software\\Classes\\con_auto_file",
                  kExtension[] = L"Software\\Classes\\.con";

/// Returns the unnamed value of a machine-wide key, "" if there is none.
std::wstring defaultValue(const std::wstring &key)
{
    std::wstring text(32768, L'\0');
    DWORD bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(),
                     &bytes) != ERROR_SUCCESS)
        return {};
    return text.substr(0, text.find(L'\0'));
}

std::wstring thisProgram()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

void check(LSTATUS status, const wchar_t *key)
{
    if (status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND)
        return;
    const host::disk::Failure failure =
        host::disk::FailureOf(static_cast<unsigned long>(status), host::ErrorNumber::FileNotFound);
    throw host::RuntimeError(failure.number, host::disk::Narrow(key) + ": " + failure.reason);
}

std::string batchFile()
{
    return host::path::Join(host::ProgramFolder(), "SetAssoc.bat");
}

} // namespace

std::string AssociationBatch(const std::string &program)
{
    std::string escaped;
    for (const char c : program) {
        if (c == '%')
            escaped += '%';
        else if (c == '&' || c == '^')
            escaped += '^';
        escaped += c;
    }
    return "assoc .con=con_auto_file\r\nftype con_auto_file=" + escaped + " %%1 %%*\r\n";
}

void AssociateConsistFiles(const std::string &program)
{
    const std::string batch = batchFile();
    host::GameFiles files;
    if (files.FileExists(batch))
        files.RemoveFile(batch);
    files.WriteFile(batch, inConsoleCodePage(AssociationBatch(program)));
    runByShell(batch);
}

void DissociateConsistFiles()
{
    const std::wstring command =
        defaultValue(std::wstring(kConsistClass) + L"\\shell\\open\\command");
    if (command == thisProgram() + L" %1 %*") {
        if (defaultValue(kExtension) == L"con_auto_file")
            check(RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kExtension, nullptr), kExtension);
        check(RegDeleteTreeW(HKEY_LOCAL_MACHINE, kConsistClass), kConsistClass);
    }
    host::GameFiles files;
    if (files.FileExists(batchFile()))
        files.RemoveFile(batchFile());
}

} // namespace app
