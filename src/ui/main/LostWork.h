// SPDX-License-Identifier: MIT
#pragma once

class frmMain;

namespace app {

/// Makes good what a killed program has left, once at the start: ends interrupted changes of
/// several files and reports them, and offers the consists that were not saved. Yes opens a consist
/// with its changes, No drops them, Cancel keeps them until the next start.
void OfferLostWork(frmMain &window);

} // namespace app
