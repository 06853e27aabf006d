// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace host {

/// Writes numbers and texts into bytes that are the same on every machine.
class Packer
{
public:
    /// Seven bits to a byte, the lowest first.
    void Number(std::uint64_t value);
    /// Eight bytes, for values that are rarely small.
    void Word(std::uint64_t value);
    void Signed(std::int64_t value) { Word(static_cast<std::uint64_t>(value)); }
    void Flag(bool value) { m_bytes += value ? '\1' : '\0'; }
    void Text(std::string_view text);

    const std::string &Bytes() const { return m_bytes; }
    std::string Take() { return std::move(m_bytes); }

private:
    std::string m_bytes;
};

/// Reads what a Packer has written. Returns zeros and empty texts after the end and after damage.
class Unpacker
{
public:
    /// The texts that are read are views of `bytes`.
    explicit Unpacker(std::string_view bytes)
        : m_rest(bytes)
    {
    }

    std::uint64_t Number();
    /// Like Number, but a value above `limit` is damage.
    std::uint32_t Index(std::size_t limit);
    std::uint64_t Word();
    std::int64_t Signed() { return static_cast<std::int64_t>(Word()); }
    bool Flag();
    std::string_view Text();

    /// True if all reads were within the bytes so far.
    bool IsGood() const { return m_isGood; }
    /// True if all bytes were read, and nothing more.
    bool IsDone() const { return m_isGood && m_rest.empty(); }

private:
    void fail();

    std::string_view m_rest;
    bool m_isGood = true;
};

} // namespace host
