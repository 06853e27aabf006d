// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>

namespace zelkctl {

/// Thrown when the program that reads standard output has ended, as `head` does. The user has seen
/// enough, so the command ends silently with the exit code kReaderGone.
class ReaderGone : public std::exception
{
};

/// The exit code of a program that stops because nobody reads its output: 128 + SIGPIPE, on every
/// system.
inline constexpr int kReaderGone = 141;

/// Text for standard output, written in large pieces. Throws Failure with the reason if it cannot
/// be written, ReaderGone if nobody reads it. The destructor discards text that was not flushed.
class Output
{
public:
    void Write(std::string_view text);
    /// Writes a JSON string with its quotes, always in valid UTF-8.
    void WriteJson(std::string_view text);
    void Flush();
    /// From now on discards text that nobody reads instead of throwing ReaderGone, for a command
    /// that does more than print.
    void OutliveReader() { m_outlivesReader = true; }

private:
    void writeOut(std::size_t count);

    std::string m_buffer;
    bool m_outlivesReader = false;
};

} // namespace zelkctl
