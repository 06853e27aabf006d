// SPDX-License-Identifier: MIT
#include "document/SaveConsist.h"

#include "document/ConsistNames.h"
#include "document/ConsistTree.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/OldContent.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <exception>
#include <optional>

namespace document {
namespace {

constexpr char kTitle[] = "Save Consist", kAnyConsist[] = "*.con", kExtension[] = ".con";
constexpr char kFilter[] = "Consist Files (*.con)|*.con|All Files (*.*)|*.*";

/// A file to write; an empty name if the user has cancelled.
struct Place
{
    std::string name;
    bool replaces = false; ///< an existing file of this name is moved out of the way first
};

/// Returns the file name that the user chooses, "" for none. Lists show only names that end in
/// ".con".
std::string chosenName(const SaveQuestions &questions)
{
    const std::string name =
        questions.dialogs.SaveFile({"Save Consist As", kFilter, kAnyConsist, questions.folder});
    if (name.empty() || name == kAnyConsist)
        return {};
    return host::ToUpper(name).ends_with(".CON") ? name : name + kExtension;
}

host::DialogAnswer askToReplace(const std::string &name, host::Dialogs &dialogs)
{
    return dialogs.Message(name + " already exists.  Do you want to overwrite it?", kTitle,
                           host::DialogIcon::Question, host::DialogButtons::YesNoCancel);
}

/// Returns the file to save to. Asks for names until one is free or may be overwritten. Clears
/// `fileName` if the user does not want to overwrite that file.
Place placeToSave(const ConsistTree &tree, std::string &fileName, const SaveQuestions &questions)
{
    for (;;) {
        std::string name = fileName.empty() ? chosenName(questions) : fileName;
        const bool changed = tree.ChangedOnDisk(name);
        if (name.empty() || !MayOverwrite(tree, name, questions.dialogs))
            return {};
        if (!questions.files.FileExists(name)) {
            CheckConsistName(host::path::BaseName(name), name);
            return {name};
        }
        switch (askToReplace(name, questions.dialogs)) {
        case host::DialogAnswer::Yes:
            if (!changed && tree.ChangedOnDisk(name))
                break; // while the question was open: ask about that first
            return {name, true};
        case host::DialogAnswer::No:
            fileName.clear();
            break;
        default:
            questions.dialogs.Message("Save of " + name + " cancelled by user!", kTitle,
                                      host::DialogIcon::Critical);
            return {};
        }
    }
}

/// Returns the state that the file has now, for a save to replace; nothing if it cannot be read.
std::optional<host::FileState> stateNow(const ConsistTree &tree, const std::string &fileName,
                                        host::GameFiles &files)
{
    if (!tree.ChangedOnDisk(fileName))
        return tree.OnDisk();
    try {
        return host::FileState(fileName, files.ReadFile(fileName));
    } catch (const host::RuntimeError &) {
        return std::nullopt;
    }
}

void putBack(host::OldContent &old, const SaveQuestions &questions)
{
    try {
        questions.files.PutBack(old);
    } catch (const std::exception &error) {
        questions.dialogs.Message(host::Explained(error) + "\n\nThe old content is in " +
                                      old.Place() + ".",
                                  kTitle, host::DialogIcon::Critical);
        old.Leave();
    }
}

/// Reports why a save failed. If the old file is out of the way, offers to put it back.
void reportFailure(const std::exception &error, std::optional<host::OldContent> &old,
                   const SaveQuestions &questions)
{
    const std::string text = host::Explained(error);
    if (!old) {
        questions.dialogs.Message(text, kTitle, host::DialogIcon::Critical);
        return;
    }
    const auto answer =
        questions.dialogs.Message(text + "\n\nThe old content of " + old->File() + " is in " +
                                      old->Place() + ".  Do you want to put it back?",
                                  kTitle, host::DialogIcon::Critical, host::DialogButtons::YesNo);
    if (answer == host::DialogAnswer::Yes)
        putBack(*old, questions);
    else
        old->Leave();
}

} // namespace

SaveOutcome SaveConsist(ConsistTree &tree, const std::string &fileName,
                        const SaveQuestions &questions, bool quiet)
{
    std::optional<host::OldContent> old;
    try {
        tree.CheckSavable(); // before an old file is moved to make room
        std::string remaining = fileName;
        const Place place = placeToSave(tree, remaining, questions);
        if (place.name.empty())
            return {false, remaining, {}};
        if (place.replaces)
            old = questions.files.MoveAside(place.name);
        tree.Save(place.name, host::FileState::Absent(place.name));
        if (old)
            old->Discard();
        return {true, place.name, quiet ? std::string() : "Consist - " + place.name};
    } catch (const std::exception &error) {
        if (old)
            tree.SetChanged(true);
        reportFailure(error, old, questions);
        return {false, fileName, {}};
    }
}

SaveOutcome SaveConsistAs(ConsistTree &tree, const std::string &fileName,
                          const SaveQuestions &questions)
{
    SaveOutcome outcome = SaveConsist(tree, {}, questions, false);
    if (!outcome.saved)
        outcome.fileName = fileName;
    return outcome;
}

bool SaveInPlace(ConsistTree &tree, const std::string &fileName, host::GameFiles &files,
                 host::Dialogs &dialogs)
{
    for (;;) {
        const std::optional<host::FileState> before = stateNow(tree, fileName, files);
        if (!MayOverwrite(tree, fileName, dialogs))
            return false;
        try {
            if (before)
                tree.Save(fileName, *before);
            else
                tree.Save(fileName);
            return true;
        } catch (const host::FileChanged &) {
            continue; // ask about that change
        }
    }
}

bool MayOverwrite(const ConsistTree &tree, const std::string &fileName, host::Dialogs &dialogs)
{
    return !tree.ChangedOnDisk(fileName) ||
           dialogs.Message(fileName + " was changed since it was opened. Overwrite it?", kTitle,
                           host::DialogIcon::Question,
                           host::DialogButtons::YesNoDefaultNo) == host::DialogAnswer::Yes;
}

} // namespace document
