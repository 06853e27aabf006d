// SPDX-License-Identifier: MIT
#pragma once

namespace document {

/// The commands of a consist editor on units, beside its buttons. They act on all selected rows and
/// keep the selection and the focus.
enum class UnitCommand
{
    AddAtEnd,   ///< the selected stock, like the button Add
    AddBehind,  ///< the selected stock, behind the selected unit
    AddSeveral, ///< the selected stock, as many times as the user says
    Remove,
    Flip,
    MoveUp,
    MoveDown,
    Reverse,    ///< the whole train
    SelectKind, ///< all units of the same vehicles as the selected ones
    Cut,
    Copy,
    Paste, ///< behind the selected unit
    Undo,
    Redo
};

} // namespace document
