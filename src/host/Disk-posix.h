// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <utility>

#include <sys/stat.h>
#include <sys/types.h>

/// Helpers that the POSIX files of the disk share.
namespace host::disk {

/// Converts a system error to the failure that commands report; the number is `whenMissing` for a
/// missing name.
Failure FailureOf(int error, ErrorNumber whenMissing);

inline bool HasWritePermission(mode_t mode)
{
    return (mode & 0222) != 0;
}

Stamp StampOf(const struct stat &status);

/// Owns an open file.
class Handle
{
public:
    Handle() = default;
    explicit Handle(int number)
        : m_number(number)
    {
    }
    ~Handle();
    Handle(Handle &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Handle &operator=(Handle &&other) = delete;

    explicit operator bool() const { return m_number >= 0; }
    int Number() const { return m_number; }
    int Release() { return std::exchange(m_number, -1); }
    /// Closes early, to detect a failure; returns 0 on success.
    int Close();

private:
    int m_number = -1;
};

} // namespace host::disk
