// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace korvat {

enum class Status
{
    Ok,
    NotThisFormat, ///< something else than what was asked for
    Damaged,       ///< cut short or contradicting itself
    Unsupported,   ///< of this format, but of a kind that nobody can show
    TooLarge       ///< beyond a limit of Limits.h
};

/// Why a file could not be read. Tests true when there is an error.
struct ReadError
{
    Status status = Status::Ok;
    /// Byte offset of what is wrong: into the file, or into what a compressed file inflates to. The
    /// line, counted from 1, where the file is text.
    std::size_t where = 0;
    std::string text; ///< one sentence without a full stop, without the file's name

    explicit operator bool() const { return status != Status::Ok; }
};

/// Keeps the first error: what follows from it is no news.
class Trouble
{
public:
    void Tell(Status status, std::size_t where, std::string text)
    {
        if (!m_error)
            m_error = {status, where, std::move(text)};
    }
    bool Met() const { return m_error.status != Status::Ok; }
    const ReadError &Error() const { return m_error; }

private:
    ReadError m_error;
};

} // namespace korvat
