// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <optional>
#include <string>
#include <string_view>

/// Helpers that the Windows files share. Including this header requires no system header.
namespace host::disk {

/// Converts UTF-8 to UTF-16; reads text that is not UTF-8 as Windows-1252.
std::wstring Wide(std::string_view text);
/// Converts UTF-16 to UTF-8; half a surrogate pair becomes U+FFFD.
std::string Narrow(std::wstring_view text);

/// Returns a path in the system's form: absolute, of any length. Returns "" for anything but the
/// path of a file: an empty text, one with a NUL or wildcards, or one with a ":" anywhere but after
/// the drive letter, where it would name another stream of a file.
std::wstring SystemPath(std::string_view path);
/// True if a path from SystemPath leads to a device ("con", "lpt1.txt").
bool IsDevice(std::wstring_view systemPath);

/// Converts a system error to the failure that commands report; the number is `whenMissing` for a
/// missing name.
Failure FailureOf(unsigned long error, ErrorNumber whenMissing);
/// Returns why a new file must not get this name: the system would change it or refuse it.
std::optional<Failure> WhyNoName(std::string_view path);

/// A stamp with what the system reports with it.
struct Marked
{
    Stamp stamp;
    std::uint64_t size = 0;
    bool isFolder = false;
};
/// Returns the stamp of an open file or folder; nothing if the system does not report it.
std::optional<Marked> MarkOf(void *file);

/// Owns a handle of the system.
class Handle
{
public:
    explicit Handle(void *handle)
        : m_handle(handle)
    {
    }
    ~Handle() { Close(); }
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;

    explicit operator bool() const;
    void *Get() const { return m_handle; }
    void Close();

private:
    void *m_handle;
};

} // namespace host::disk
