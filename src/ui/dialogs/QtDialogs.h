// SPDX-License-Identifier: MIT
#pragma once

#include "host/Dialogs.h"

#include <QString>
#include <QStringList>

namespace app {

/// The program's dialogs, modal over the active window. They show texts as plain text.
class QtDialogs : public host::Dialogs
{
public:
    host::DialogAnswer Message(const std::string &text, const std::string &title,
                               host::DialogIcon icon,
                               host::DialogButtons buttons = host::DialogButtons::Ok) override;
    std::optional<std::string> Input(const std::string &prompt, const std::string &title,
                                     const std::string &defaultAnswer) override;
    std::string OpenFile(const host::FileDialogRequest &request) override;
    std::string SaveFile(const host::FileDialogRequest &request) override;
    std::string SelectFromList(const std::string &caption, const std::string &list) override;
};

/// Converts "text|pattern|text|pattern" to the name filters of a file dialog. Gives patterns with
/// letters in both cases, for dialogs that distinguish them.
QStringList NameFilters(const std::string &filter);

} // namespace app
