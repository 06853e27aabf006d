// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

/// The numbers of text shapes. Each function reads the number at the front of a word; units may
/// follow it. Returns false if there is none.
namespace korvat {

/// A number too small for a float becomes 0, one too large becomes infinity.
bool ReadFloat(std::string_view word, float &value);

/// Reads an integer; -1 gives 4294967295. Larger numbers also become 4294967295.
bool ReadInteger(std::string_view word, std::uint32_t &value);

/// Reads a hexadecimal number without a sign. Returns false for one of more than 32 bits.
bool ReadHex(std::string_view word, std::uint32_t &value);

} // namespace korvat
