// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>

namespace zelkctl {

/// Thrown when the program that reads the standard output has ended, as `head` does. The user has
/// seen enough: the command ends silently, with kReaderGone as exit code.
class ReaderGone : public std::exception
{
};

/// The exit code of a program that stops because nobody reads its output: 128 + SIGPIPE, on every
/// system.
inline constexpr int kReaderGone = 141;

/// Text for the standard output, written in large pieces. Throws Failure with the reason when it
/// cannot be written, ReaderGone when nobody reads it. Text that was not flushed before the object
/// is destroyed is not written.
class Output
{
public:
    void Write(std::string_view text);
    /// A JSON string with its quotes, always valid UTF-8.
    void WriteJson(std::string_view text);
    void Flush();
    /// From now on drops text that nobody reads instead of throwing ReaderGone: the command has
    /// more to do than to print.
    void OutliveReader() { m_outlivesReader = true; }

private:
    void writeOut(std::size_t count);

    std::string m_buffer;
    bool m_outlivesReader = false;
};

} // namespace zelkctl
