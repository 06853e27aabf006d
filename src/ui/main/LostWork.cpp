// SPDX-License-Identifier: MIT
#include "ui/main/LostWork.h"

#include "document/UnsavedConsist.h"
#include "host/ChangeJournal.h"
#include "host/Dialogs.h"
#include "host/Guard.h"
#include "host/OldContent.h"
#include "ui/document/frmDocument.h"
#include "ui/main/frmMain.h"

#include <QDateTime>
#include <QLocale>

namespace app {
namespace {

using document::UnsavedConsist;
using host::DialogAnswer;

constexpr char kTitle[] = "Unsaved Consist";

DialogAnswer askAbout(const UnsavedConsist &consist, host::Dialogs &dialogs)
{
    constexpr std::int64_t kPerMillisecond = 1'000'000;
    const QString time = QLocale().toString(
        QDateTime::fromMSecsSinceEpoch(consist.time / kPerMillisecond), QLocale::ShortFormat);
    std::string text = consist.path.empty() ? consist.title : consist.path;
    text += " was not saved when ZELK ended unexpectedly.  Its last change was on ";
    text += time.toStdString();
    text +=
        ".\n\nDo you want to open it with its changes?  No drops them, Cancel asks again at the "
        "next start.";
    return dialogs.Message(text, kTitle, host::DialogIcon::Question,
                           host::DialogButtons::YesNoCancel);
}

/// Returns true once the changes are in a window, which keeps them itself.
bool reopen(frmMain &window, const UnsavedConsist &consist)
{
    const std::size_t before = window.Documents().size();
    window.OpenDocumentWindow(consist.path, document::WindowMode::ConsistEditor, consist.title, {});
    if (window.Documents().size() == before)
        return false;
    return document::Guarded(window.Environment().dialogs, kTitle,
                             [&] { window.Documents().back()->Restore(consist); });
}

} // namespace

void OfferLostWork(frmMain &window)
{
    host::Dialogs &dialogs = window.Environment().dialogs;
    for (const std::string &message : host::ChangeJournal().Recover())
        dialogs.Message(message, "Interrupted Change", host::DialogIcon::Information);
    for (const std::string &message : host::OldContent::Recover())
        dialogs.Message(message, "Interrupted Save", host::DialogIcon::Information);
    document::LostConsists lost;
    for (std::size_t i = 0; i < lost.All().size(); ++i) {
        const UnsavedConsist &consist = lost.All()[i];
        const DialogAnswer answer = askAbout(consist, dialogs);
        if (answer == DialogAnswer::No || (answer == DialogAnswer::Yes && reopen(window, consist)))
            lost.Drop(i);
    }
}

} // namespace app
