// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zelkctl {

/// Text for the standard output, written in large pieces. What could not be written is a Failure
/// that says why. What was not flushed when the object goes is not written.
class Output
{
public:
    void Write(std::string_view text);
    /// A JSON string with its quotes, always valid UTF-8.
    void WriteJson(std::string_view text);
    void Flush();

private:
    void writeOut(std::size_t count);

    std::string m_buffer;
};

} // namespace zelkctl
