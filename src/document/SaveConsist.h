// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace host {
class Dialogs;
class GameFiles;
} // namespace host

namespace document {

class ConsistTree;

/// The dialogs and settings that saving uses to ask for file names and confirmation.
struct SaveQuestions
{
    host::Dialogs &dialogs;
    host::GameFiles &files;
    std::string folder; ///< where the file dialog opens; "" for the dialog's own choice
};

/// The outcome of a save, for the window of the consist.
struct SaveOutcome
{
    bool saved = false;
    std::string fileName; ///< the file of the consist from now on; "" for none
    std::string caption;  ///< the new caption of the window; "" to keep the present one
};

/// Saves a consist whose file is `fileName`:
///
/// - Without a file name, asks for one. A name chosen in the dialog always ends in ".con".
/// - Asks before overwriting another program's change; any answer but Yes cancels the save.
/// - Asks before overwriting any file. Yes moves the file out of the way (host/OldContent.h),
/// writes
///   the consist, and then deletes the old file. No drops the file name and asks for another one.
///   Cancel reports that the consist was not saved, and stops.
/// - Never overwrites a file that another program creates or changes while a question is open.
///
/// A failure is reported with the whole path and the reason, and the consist keeps its file name.
/// If the old file is already out of the way, the report says where it is and offers to put it
/// back, and the tree counts as changed. A `quiet` save keeps the caption.
SaveOutcome SaveConsist(ConsistTree &tree, const std::string &fileName,
                        const SaveQuestions &questions, bool quiet);

/// Asks for a name and saves a consist under it. The consist keeps `fileName` unless it was
/// written.
SaveOutcome SaveConsistAs(ConsistTree &tree, const std::string &fileName,
                          const SaveQuestions &questions);

/// Saves a consist in its own file. Asks before it overwrites another program's change, also one
/// that is made while the question is open. Returns false if the answer was not Yes. Throws
/// RuntimeError as ConsistTree::Save does.
bool SaveInPlace(ConsistTree &tree, const std::string &fileName, host::GameFiles &files,
                 host::Dialogs &dialogs);

/// Asks whether to overwrite the file if another program has changed it since it was read. True
/// when it is unchanged, belongs to another consist, or the answer is Yes.
bool MayOverwrite(const ConsistTree &tree, const std::string &fileName, host::Dialogs &dialogs);

} // namespace document
