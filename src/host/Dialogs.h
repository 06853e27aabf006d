// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace host {

enum class DialogIcon
{
    None,
    Information,
    Question,
    Critical
};
enum class DialogButtons
{
    Ok,
    YesNo,
    YesNoDefaultNo, ///< the Return key answers No: for actions that cannot be undone
    YesNoCancel
};
enum class DialogAnswer
{
    Ok,
    Yes,
    No,
    Cancel
};

/// A file dialog: `filter` is "text|pattern|text|pattern...", the first entry is the initial one.
struct FileDialogRequest
{
    std::string title;
    std::string filter;
    std::string initialName; ///< initial content of the name box, for example "*.con"
    std::string folder;      ///< initial folder; "" for the dialog's own choice
};

/// All modal interaction with the user: messages, prompts, file dialogs. Qt in the program,
/// scripted in tests, silent with a log in zelkctl.
class Dialogs
{
public:
    virtual ~Dialogs() = default;

    /// Shows a message box. A box that is closed without a button (Esc) answers Cancel, or No if it
    /// has only Yes and No. So a box with one button answers Ok only if the button was pressed. The
    /// first button is the default, unless DialogButtons states otherwise.
    virtual DialogAnswer Message(const std::string &text, const std::string &title, DialogIcon icon,
                                 DialogButtons buttons = DialogButtons::Ok) = 0;
    /// Asks for a text; returns nothing if the user cancels.
    virtual std::optional<std::string> Input(const std::string &prompt, const std::string &title,
                                             const std::string &defaultAnswer) = 0;
    /// Asks for a file to open; returns "" if the user cancels.
    virtual std::string OpenFile(const FileDialogRequest &request) = 0;
    /// Asks for a file to save; returns "" if the user cancels. Does not ask about overwriting.
    virtual std::string SaveFile(const FileDialogRequest &request) = 0;
    /// Lets the user mark any number of entries of a list, "name(detail)|name...". Returns the
    /// names of the marked ones in list order, joined by "|"; "" if none is marked or the user
    /// cancels.
    virtual std::string SelectFromList(const std::string &caption, const std::string &list) = 0;
};

} // namespace host
