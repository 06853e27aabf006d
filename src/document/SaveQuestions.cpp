// SPDX-License-Identifier: MIT
#include "document/SaveQuestions.h"

#include "host/Dialogs.h"

namespace document {

bool MayOverwriteChangedFile(const std::string &path, host::Dialogs &dialogs)
{
    return dialogs.Message(path + " was changed since it was opened. Overwrite it?", "Save Consist",
                           host::DialogIcon::Question,
                           host::DialogButtons::YesNoDefaultNo) == host::DialogAnswer::Yes;
}

} // namespace document
