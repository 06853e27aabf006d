// SPDX-License-Identifier: MIT
// Files and folders dropped on the main window.
#include "app/DropPlan.h"
#include "host/GameFiles.h"
#include "ui/main/frmMain.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace {

/// The path of a local file, with the platform's separators: the bytes in the URL, where they are
/// not text.
std::string pathOf(const QUrl &url)
{
    const QString text = url.toLocalFile();
    if (!text.contains(QChar::ReplacementCharacter))
        return QDir::toNativeSeparators(text).toStdString();
    const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
    return QByteArray::fromPercentEncoding(encoded).toStdString();
}

} // namespace

void frmMain::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    std::vector<std::string> paths;
    for (const QUrl &url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.push_back(m_services.files.TextOf(pathOf(url)));
    // After the drop, so that a message box does not hold up the window dragged from.
    QMetaObject::invokeMethod(
        this, [this, paths] { openDropped(paths); }, Qt::QueuedConnection);
}

void frmMain::openDropped(const std::vector<std::string> &paths)
{
    app::DropPlan plan = app::PlanDrop(paths, m_services.files);
    if (paths.size() == 1 && plan.location.empty()) {
        OpenFile(paths.front());
        return;
    }
    if (!plan.location.empty())
        offerLocation(plan.location);
    // One by one: each may let window events run.
    for (const std::string &file : plan.files)
        QMetaObject::invokeMethod(
            this, [this, file] { OpenFile(file); }, Qt::QueuedConnection);
    if (plan.refusal.empty())
        return;
    const auto refuse = [this, refusal = plan.refusal] {
        m_services.dialogs.Message(refusal, "Open File", host::DialogIcon::Critical);
    };
    QMetaObject::invokeMethod(this, refuse, Qt::QueuedConnection);
}

void frmMain::offerLocation(const std::string &folder)
{
    const bool isWanted = mayChangeLocation() &&
                          m_services.dialogs.Message(
                              "Do you want to work on the Train Simulator folder " + folder + "?",
                              "Set MSTS Location", host::DialogIcon::Question,
                              host::DialogButtons::YesNo) == host::DialogAnswer::Yes;
    if (isWanted)
        changeLocation(install::ChosenLocation(folder));
}
