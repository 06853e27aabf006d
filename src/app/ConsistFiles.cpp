// SPDX-License-Identifier: MIT
#include "app/ConsistFiles.h"

#include "app/ConsistNames.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "install/Installation.h"

#include <algorithm>

namespace app {

using host::DialogIcon;

namespace {

constexpr char kPaste[] = "Paste";
constexpr std::size_t kLongestName = 255; ///< of a file, on any disk

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20;
}

/// False for text that was copied somewhere else and cannot be what a file is called.
bool canBeName(const std::string &text)
{
    return text.size() <= kLongestName && std::none_of(text.begin(), text.end(), isControl);
}

} // namespace

void PasteConsist(const std::string &source, host::Dialogs &dialogs, host::GameFiles &files,
                  const install::Installation &installation)
{
    if (source.empty())
        return;
    if (!canBeName(source)) {
        dialogs.Message("What is on the clipboard is not the name of a consist.", kPaste,
                        DialogIcon::Critical);
        return;
    }
    const std::string name =
        dialogs.Input("Enter new consist name:", "Copy Consist", "Copy of " + source).value_or("");
    if (name.empty())
        return;
    const std::string target = installation.ConsistPath(name);
    try {
        CheckPortableConsistName(name, target);
        files.WriteFile(target, files.ReadFile(installation.ConsistPath(source)));
    } catch (const host::RuntimeError &error) {
        dialogs.Message(host::Explained(error), kPaste, DialogIcon::Critical);
        return;
    }
    dialogs.Message("Created " + target, kPaste, DialogIcon::Information);
}

void CutConsist(const std::string &name, host::Dialogs &dialogs, host::GameFiles &files,
                const install::Installation &installation)
{
    const std::string path = installation.ConsistPath(name);
    if (name.empty() || !files.FileExists(path))
        return;
    if (dialogs.Message("Delete " + name + " ?", "Delete", DialogIcon::Question,
                        host::DialogButtons::YesNo) == host::DialogAnswer::Yes)
        files.RemoveFile(path);
}

} // namespace app
