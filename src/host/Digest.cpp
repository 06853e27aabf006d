// SPDX-License-Identifier: MIT
#include "host/Digest.h"

#include <bit>

namespace host {
namespace {

constexpr std::uint64_t kFirst = 0x9E3779B97F4A7C15, kSecond = 0xC2B2AE3D27D4EB4F;

/// Returns up to eight bytes as a number, in the same order on every machine.
std::uint64_t wordAt(std::string_view bytes)
{
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < bytes.size() && i < 8; ++i)
        word |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    return word;
}

/// Both steps can be undone, so two different states stay different.
std::uint64_t mix(std::uint64_t state, std::uint64_t word)
{
    return std::rotl((state ^ word) * kFirst, 29) + kSecond;
}

} // namespace

std::uint64_t Digest(std::string_view bytes)
{
    std::uint64_t state = bytes.size();
    while (bytes.size() >= 8) {
        state = mix(state, wordAt(bytes.substr(0, 8)));
        bytes.remove_prefix(8);
    }
    state = mix(state, wordAt(bytes));
    state = (state ^ state >> 32) * kSecond;
    return state ^ state >> 29;
}

} // namespace host
