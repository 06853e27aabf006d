// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace korvat {

enum class Status
{
    Ok,
    NotThisFormat, ///< not the kind of file that was asked for
    Damaged,       ///< cut short or contradictory
    Unsupported,   ///< of this format, but a variant that ZELK cannot show
    TooLarge       ///< beyond a limit of Limits.h
};

/// Why a file could not be read. Converts to true if there is an error.
struct ReadError
{
    Status status = Status::Ok;
    /// The position of the fault. In binary content, the byte offset in the file or, if it is
    /// compressed, in the inflated content. In text, the line, counted from 1.
    std::size_t where = 0;
    std::string text; ///< one sentence without full stop or file name

    explicit operator bool() const { return status != Status::Ok; }
};

/// Keeps the first error only: later ones usually follow from it.
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
