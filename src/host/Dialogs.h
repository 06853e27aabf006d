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
    YesNoDefaultNo, ///< Return alone answers No: for what cannot be undone
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
    std::string initialName; ///< what stands in the name box, for example "*.con"
    std::string folder;      ///< where it opens; "" for the dialog's own choice
};

/// All modal interaction with the user: messages, prompts, file dialogs. Qt in the program,
/// scripted in tests, silent with a log in zelkctl.
class Dialogs
{
public:
    virtual ~Dialogs() = default;

    /// A message box. A box that is closed without a button (Esc) answers Cancel, or No if it has
    /// Yes and No alone. So a box with one button answers Ok only when the button was pressed.
    /// The first button is the default, except where DialogButtons says otherwise.
    virtual DialogAnswer Message(const std::string &text, const std::string &title, DialogIcon icon,
                                 DialogButtons buttons = DialogButtons::Ok) = 0;
    /// An input box; nothing when it was cancelled.
    virtual std::optional<std::string> Input(const std::string &prompt, const std::string &title,
                                             const std::string &defaultAnswer) = 0;
    /// A file to open; "" when cancelled.
    virtual std::string OpenFile(const FileDialogRequest &request) = 0;
    /// A file to save; "" when cancelled. The dialog itself asks nothing about overwriting.
    virtual std::string SaveFile(const FileDialogRequest &request) = 0;
    /// Lets the user mark any number of the entries of a list, "name(detail)|name..."; the names of
    /// those marked, in list order, joined by "|". "" when none was marked or it was cancelled.
    virtual std::string SelectFromList(const std::string &caption, const std::string &list) = 0;
};

} // namespace host
