// SPDX-License-Identifier: MIT
#pragma once

namespace document {

/// The action buttons of a consist editor, by their index.
enum class EditorAction
{
    Cancel = 0,
    Apply = 1,
    Ok = 2,
    ViewConsist = 3,
    ViewShape = 4
};

} // namespace document
