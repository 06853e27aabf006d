// SPDX-License-Identifier: MIT
#include "app/SaveConsist.h"

#include "app/ConsistNames.h"
#include "app/OpenRules.h"
#include "document/SaveQuestions.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <exception>

namespace app {
namespace {

constexpr const char *kTitle = "Save Consist";
constexpr const char *kAnyConsist = "*.con";
constexpr const char *kExtension = ".con";

/// A file to write; an empty name when the user has given up.
struct Place
{
    std::string name;
    bool replaces = false; ///< a file of this name is to be deleted first
};

/// A file name chosen by the user, "" for none. Lists show only names that end in ".con".
std::string chosenName(host::Dialogs &dialogs, const std::string &consistFolder)
{
    const std::string name =
        dialogs.SaveFile({"Save Consist As", kSaveFilter, kAnyConsist, consistFolder});
    if (name.empty() || name == kAnyConsist)
        return {};
    return host::ToUpper(name).ends_with(".CON") ? name : name + kExtension;
}

host::DialogAnswer askToReplace(const std::string &name, host::Dialogs &dialogs)
{
    return dialogs.Message(name + " already exists.  Do you want to overwrite it?", kTitle,
                           host::DialogIcon::Question, host::DialogButtons::YesNoCancel);
}

/// The file to save to; asks for names until one is free or may be overwritten.
Place placeToSave(const SaveTarget &target, host::Dialogs &dialogs, host::GameFiles &files,
                  const std::string &consistFolder)
{
    for (;;) {
        std::string name = target.fileName();
        if (name.empty())
            name = chosenName(dialogs, consistFolder);
        if (name.empty() ||
            (target.changedOnDisk(name) && !document::MayOverwriteChangedFile(name, dialogs)))
            return {};
        if (!files.FileExists(name)) {
            CheckConsistName(host::path::BaseName(name), name);
            return {name};
        }
        switch (askToReplace(name, dialogs)) {
        case host::DialogAnswer::Yes:
            return {name, true};
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
    const std::string nameBefore = target.fileName(), captionBefore = target.caption();
    bool deleted = false;
    try {
        target.checkForm(); // before an old file is deleted to make room
        const Place place = placeToSave(target, dialogs, files, consistFolder);
        if (place.name.empty())
            return false;
        if (place.replaces) {
            files.RemoveFile(place.name);
            deleted = true;
        }
        target.setFileName(place.name);
        if (!quiet)
            target.setCaption("Consist - " + place.name);
        target.saveForm(quiet);
        return true;
    } catch (const std::exception &error) {
        target.setFileName(nameBefore);
        target.setCaption(captionBefore);
        if (deleted)
            target.markChanged();
        dialogs.Message(host::Explained(error), kTitle, host::DialogIcon::Critical);
        return false;
    }
}

bool SaveConsistAs(const SaveTarget &target, host::Dialogs &dialogs, host::GameFiles &files,
                   const std::string &consistFolder)
{
    const std::string nameBefore = target.fileName();
    target.setFileName({});
    const bool saved = SaveConsist(target, dialogs, files, consistFolder, false);
    if (!saved)
        target.setFileName(nameBefore);
    return saved;
}

} // namespace app
