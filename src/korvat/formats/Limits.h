// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// Limits of the readers, each with its reason. Files come from strangers, so memory must stay
/// below a small multiple of the bytes that a file really has.
namespace korvat {

/// Real shapes inflate to about 15 MB; there are reports of text shapes of 47 MB.
inline constexpr std::size_t kMaxShapeBytes = std::size_t{128} << 20;

/// The largest texture in use, 4096 x 4096 with alpha and mipmaps, has 90 MB.
inline constexpr std::size_t kMaxTextureBytes = std::size_t{256} << 20;

/// Deflate expands a byte to at most this many, whatever the size field says.
inline constexpr std::size_t kMaxInflateRatio = 1032;

/// More than any graphics card accepts; keeps width x height x 4 within 32 bits.
inline constexpr std::uint32_t kMaxTextureSide = 16384;

/// Red, green, blue, mask and alpha.
inline constexpr std::uint32_t kMaxChannels = 5;

/// Real shapes have up to 59 matrices. The limit bounds the walk along a chain of parents.
inline constexpr std::size_t kMaxHierarchyDepth = 64;

} // namespace korvat
