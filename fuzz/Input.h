// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

/// Ends the run as a find if the condition is false.
inline void Require(bool holds)
{
    if (!holds)
        std::abort();
}

/// The bytes of one run, taken from the front. At the end all numbers are 0 and all texts empty.
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size)
        : m_bytes(reinterpret_cast<const char *>(data), size)
    {
    }

    bool IsAtEnd() const { return m_bytes.empty(); }
    std::uint8_t Byte()
    {
        const std::string_view byte = Text(1);
        return byte.empty() ? 0 : static_cast<std::uint8_t>(byte.front());
    }
    /// Returns a number below `count`, which is not 0.
    int Below(int count) { return Byte() % count; }
    /// Returns the next bytes, `size` at most.
    std::string_view Text(std::size_t size)
    {
        const std::string_view text = m_bytes.substr(0, size);
        m_bytes.remove_prefix(text.size());
        return text;
    }
    /// Returns the text before the next separator, which is dropped.
    std::string_view TextBefore(char separator)
    {
        const std::string_view text = Text(std::min(m_bytes.find(separator), m_bytes.size()));
        Text(1);
        return text;
    }
    std::string_view Rest() { return Text(m_bytes.size()); }

private:
    std::string_view m_bytes;
};
