// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace host {
class Dialogs;
}

namespace document {

/// Asks whether to overwrite a file that somebody else has changed since it was opened. Anything
/// but Yes counts as No.
bool MayOverwriteChangedFile(const std::string &path, host::Dialogs &dialogs);

} // namespace document
