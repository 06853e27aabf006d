// SPDX-License-Identifier: MIT
#include "ui/main/FileDrop.h"

#include "app/DropPlan.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "ui/main/FileOpener.h"
#include "ui/main/MstsLocation.h"
#include "ui/main/frmMain.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace app {

namespace {

/// Returns the path of a local file, with the platform's separators. A path that is not valid text
/// keeps the bytes of the URL.
std::string pathOf(const QUrl &url)
{
    const QString text = url.toLocalFile();
    if (!text.contains(QChar::ReplacementCharacter))
        return QDir::toNativeSeparators(text).toStdString();
    const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
    return QByteArray::fromPercentEncoding(encoded).toStdString();
}

} // namespace

FileDrop::FileDrop(frmMain &window, FileOpener &opener, MstsLocation &location)
    : m_window(window)
    , m_opener(opener)
    , m_location(location)
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool FileDrop::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::DragEnter) {
        auto &entering = *static_cast<QDragEnterEvent *>(event);
        if (!entering.mimeData()->hasUrls())
            return false;
        entering.acceptProposedAction();
        return true;
    }
    if (event->type() == QEvent::Drop) {
        take(*static_cast<QDropEvent *>(event));
        return true;
    }
    return false;
}

template <typename Act> void FileDrop::later(Act act)
{
    QMetaObject::invokeMethod(this, std::move(act), Qt::QueuedConnection);
}

void FileDrop::take(QDropEvent &event)
{
    event.acceptProposedAction();
    std::vector<std::string> paths;
    for (const QUrl &url : event.mimeData()->urls())
        if (url.isLocalFile())
            paths.push_back(m_window.Environment().files.TextOf(pathOf(url)));
    // After the drop, so that a message box does not block the window that the drag came from.
    later([this, paths] { open(paths); });
}

void FileDrop::open(const std::vector<std::string> &paths)
{
    const DropPlan plan = PlanDrop(paths, m_window.Environment().files);
    if (paths.size() == 1 && plan.location.empty()) {
        m_opener.Open(paths.front());
        return;
    }
    if (!plan.location.empty())
        m_location.Offer(plan.location);
    // Calls each function separately, since each may process window events.
    for (const std::string &file : plan.files)
        later([this, file] { m_opener.Open(file); });
    if (!plan.refusal.empty())
        later([this, refusal = plan.refusal] {
            m_window.Environment().dialogs.Message(refusal, "Open File",
                                                   host::DialogIcon::Critical);
        });
}

} // namespace app
