// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// What the readers refuse to go beyond, each with its reason. Files come from strangers: memory
/// stays below a small multiple of what is really there.
namespace korvat {

/// Real shapes inflate to 15 MB or so; text shapes of 47 MB are reported.
inline constexpr std::size_t kMaxShapeBytes = std::size_t{128} << 20;

/// The largest texture in use, 4096 x 4096 with alpha and mipmaps, has 90 MB.
inline constexpr std::size_t kMaxTextureBytes = std::size_t{256} << 20;

/// Deflate cannot make more of a byte than this, whatever its size field says.
inline constexpr std::size_t kMaxInflateRatio = 1032;

/// Beyond what any graphics card takes; keeps width x height x 4 within 32 bits.
inline constexpr std::uint32_t kMaxTextureSide = 16384;

/// Red, green, blue, mask and alpha.
inline constexpr std::uint32_t kMaxChannels = 5;

/// Real shapes have up to 59 matrices. Chains of parents are walked, so their length is bounded.
inline constexpr std::size_t kMaxHierarchyDepth = 64;

} // namespace korvat
