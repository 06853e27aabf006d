// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <optional>
#include <string>
#include <string_view>

/// What the Windows files share. No header of the system is needed to include this one.
namespace host::disk {

/// UTF-8 as UTF-16; text that is no UTF-8 is read as Windows-1252.
std::wstring Wide(std::string_view text);
/// UTF-16 as UTF-8; half a surrogate pair becomes U+FFFD.
std::string Narrow(std::wstring_view text);

/// A path as the system takes it, made absolute, of any length. "" for what is no path of a file:
/// empty, with a NUL or wildcards, or with a ":" elsewhere than after the letter of the drive,
/// which would name another stream of a file.
std::wstring SystemPath(std::string_view path);
/// True for a path that SystemPath found to lead to a device ("con", "lpt1.txt").
bool IsDevice(std::wstring_view systemPath);

/// A failure of the system as commands report it; a missing name is what the caller says it is.
Failure FailureOf(unsigned long error, ErrorNumber whenMissing);
/// Why a new file must not get this name: the system would give it another one, or refuses it.
std::optional<Failure> WhyNoName(std::string_view path);

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
