// SPDX-License-Identifier: MIT
#pragma once

namespace document {

/// What a document window shows.
enum class WindowMode
{
    ConsistList = 0,   ///< the installed consists
    ConsistEditor = 1, ///< one consist, to edit
    ConsistView = 2,   ///< a consist in 3D
    ShapeView = 3      ///< a shape in 3D
};
inline constexpr int kWindowModes = 4;

constexpr bool Is3D(WindowMode mode)
{
    return mode == WindowMode::ConsistView || mode == WindowMode::ShapeView;
}

} // namespace document
