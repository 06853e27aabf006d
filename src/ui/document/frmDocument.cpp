// SPDX-License-Identifier: MIT
#include "ui/document/frmDocument.h"

#include "host/Dialogs.h"
#include "install/Installation.h"
#include "ui/document/ConsistEditorPane.h"
#include "ui/document/ConsistListPane.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/View3DPane.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMenu>
#include <QScopedValueRollback>

using document::WindowMode;
using host::DialogAnswer;

frmDocument::frmDocument(const install::Environment &environment, document::DocumentHost &host,
                         document::Furnishing furnishing, int windowNumber)
    : m_environment(environment)
    , m_host(host)
    , m_furnishing(std::move(furnishing))
    , m_windowNumber(windowNumber)
{
    setObjectName("frmDocument");
    setAttribute(Qt::WA_DeleteOnClose);
    // Otherwise the frame's own menu would take Ctrl+F4 from the File menu.
    if (systemMenu())
        for (QAction *action : systemMenu()->actions())
            action->setShortcuts({});
}

frmDocument::~frmDocument()
{
    Q_EMIT Unloading();
}

void frmDocument::SetMode(WindowMode mode)
{
    m_mode = mode;
    m_pane = &makePane();
    setWidget(&m_pane->Widget());
    setMinimumSize(m_pane->MinimumWindowSize());
}

document::DocumentPane &frmDocument::makePane()
{
    switch (m_mode) {
    case WindowMode::ConsistList:
        return *new document::ConsistListPane(*this, m_host, m_furnishing);
    case WindowMode::ConsistEditor:
        return *new document::ConsistEditorPane(*this, m_host, m_furnishing);
    case WindowMode::ConsistView:
    case WindowMode::ShapeView:
        break;
    }
    return *new document::View3DPane(*this, m_host);
}

void frmDocument::SetCaption(const std::string &caption)
{
    setWindowTitle(QString::fromStdString(caption));
    Q_EMIT CaptionChanged();
}

void frmDocument::ActionClick(document::EditorAction action)
{
    m_host.SetStatus({});
    m_pane->Act(action);
}

void frmDocument::Remark(const std::string &remark)
{
    m_pane->AddRemark(remark);
    m_host.SetStatus(remark);
}

void frmDocument::EditConsist(const std::string &name)
{
    openConsist(name, WindowMode::ConsistEditor);
}

void frmDocument::ViewConsist(const std::string &name)
{
    openConsist(name, WindowMode::ConsistView);
}

void frmDocument::openConsist(const std::string &name, WindowMode mode)
{
    m_host.SetStatus({});
    m_host.OpenDocumentWindow(m_environment.installation.ConsistPath(name), mode,
                              "Consist - " + name, {});
}

bool frmDocument::SaveByHost(bool quiet)
{
    if (mdiArea())
        mdiArea()->setActiveSubWindow(this);
    m_host.SaveDocument(quiet);
    return !Changed();
}

bool frmDocument::OfferToSave(const char *title, const char *question)
{
    if (isMinimized())
        showNormal();
    if (mdiArea())
        mdiArea()->setActiveSubWindow(this);
    const DialogAnswer answer = m_environment.dialogs.Message(
        question, title, host::DialogIcon::Question, host::DialogButtons::YesNoCancel);
    return answer == DialogAnswer::Yes ? SaveByHost(false) : answer == DialogAnswer::No;
}

bool frmDocument::QueryUnload()
{
    if (m_unloadAllowed || !Changed())
        return true;
    if (m_asking)
        return false;
    const QScopedValueRollback<bool> asking(m_asking, true);
    return OfferToSave("Close", "Consist has changed.  All changes will be lost if you do not save "
                                "it.  Do you want to save it before closing?");
}

void frmDocument::closeEvent(QCloseEvent *event)
{
    if (!QueryUnload()) {
        event->ignore();
        return;
    }
    m_unloadAllowed = true;
    Q_EMIT Closing();
    m_host.SetStatus({}); // the status may be about this window
    QMdiSubWindow::closeEvent(event);
}
