// SPDX-License-Identifier: MIT
#include "app/SaveConsist.h"

#include "app/ConsistNames.h"
#include "app/OpenRules.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"

namespace app {
namespace {

constexpr const char *kTitle = "Save Consist";
constexpr const char *kAnyConsist = "*.con";

/// The name to save under, asked for until it is free or may be overwritten; "" to stop.
std::string nameToSave(const SaveTarget &target, host::Dialogs &dialogs, host::GameFiles &files,
                       const std::string &consistFolder)
{
    for (;;) {
        std::string name = target.fileName();
        if (name.empty())
            name = dialogs.SaveFile({"Save Consist As", kSaveFilter, kAnyConsist, consistFolder});
        if (name.empty() || name == kAnyConsist)
            return {};
        if (!files.FileExists(name)) {
            CheckConsistName(host::path::BaseName(name), name);
            return name;
        }
        switch (dialogs.Message(name + " already exists.  Do you want to overwrite it?", kTitle,
                                host::DialogIcon::Question, host::DialogButtons::YesNoCancel)) {
        case host::DialogAnswer::Yes:
            files.RemoveFile(name);
            return name;
        case host::DialogAnswer::No:
            target.setFileName({});
            break;
        default:
            dialogs.Message("Save of " + name + " cancelled by user!", kTitle,
                            host::DialogIcon::Critical);
            return {};
        }
    }
}

} // namespace

bool SaveConsist(const SaveTarget &target, host::Dialogs &dialogs, host::GameFiles &files,
                 const std::string &consistFolder, bool quiet)
{
    try {
        target.checkForm(); // before an old file is deleted to make room
        const std::string name = nameToSave(target, dialogs, files, consistFolder);
        if (name.empty())
            return false;
        target.setFileName(name);
        if (!quiet)
            target.setCaption("Consist - " + name);
        target.saveForm(quiet);
        return true;
    } catch (const host::RuntimeError &error) {
        dialogs.Message(host::Explained(error), kTitle, host::DialogIcon::Critical);
        return false;
    }
}

} // namespace app
