// SPDX-License-Identifier: MIT
#include "app/ConsistFiles.h"

#include "app/Desktop.h"
#include "document/ConsistNames.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "install/Installation.h"

#include <algorithm>

namespace app {

using host::DialogIcon;

namespace {

constexpr char kPaste[] = "Paste", kDelete[] = "Delete";
constexpr std::size_t kLongestName = 255; ///< of a file, on any disk

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20;
}

/// Returns false for clipboard text from another program that cannot be a file name.
bool canBeName(const std::string &text)
{
    return text.size() <= kLongestName && std::none_of(text.begin(), text.end(), isControl);
}

} // namespace

void PasteConsist(const std::string &source, const install::Environment &environment)
{
    host::Dialogs &dialogs = environment.dialogs;
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
    const std::string target = environment.installation.ConsistPath(name);
    try {
        document::CheckPortableConsistName(name, target);
        environment.files.WriteFile(
            target, environment.files.ReadFile(environment.installation.ConsistPath(source)));
    } catch (const host::RuntimeError &error) {
        dialogs.Message(host::Explained(error), kPaste, DialogIcon::Critical);
        return;
    }
    dialogs.Message("Created " + target, kPaste, DialogIcon::Information);
}

std::string CutConsist(const std::string &name, const install::Environment &environment,
                       Desktop &desktop)
{
    const auto agrees = [&dialogs = environment.dialogs](const std::string &question) {
        return dialogs.Message(question, kDelete, DialogIcon::Question,
                               host::DialogButtons::YesNoDefaultNo) == host::DialogAnswer::Yes;
    };
    const std::string path = environment.installation.ConsistPath(name);
    host::GameFiles &files = environment.files;
    const auto file = files.FindFile(path);
    if (name.empty() || !file || !agrees("Delete " + name + " ?"))
        return {};
    if (desktop.MoveToWastebasket(host::path::FromDisk(*file))) {
        files.Refresh();
        return path + " was moved to the wastebasket.";
    }
    if (!agrees(path + " cannot be moved to the wastebasket.\n\nDelete it for good?"))
        return {};
    files.RemoveFile(path);
    return path + " was deleted.";
}

} // namespace app
