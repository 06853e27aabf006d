// SPDX-License-Identifier: MIT
#include "ui/document/ConsistListPane.h"

#include "document/ConsistList.h"
#include "host/Dialogs.h"
#include "host/Filter.h"
#include "host/GameFiles.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/Furnishing.h"
#include "ui/document/MissingMarks.h"
#include "ui/document/frmDocument.h"

#include <QVBoxLayout>

namespace document {

ConsistListPane::ConsistListPane(frmDocument &window, DocumentHost &host,
                                 const Furnishing &furnishing)
    : lvConsists(new ListView("lvConsists", QStringLiteral("Installed consists"), this))
    , m_window(window)
    , m_host(host)
    , m_model(new ConsistListModel(this))
    , m_marks(new ConsistMarks(window.Environment(), *m_model, *lvConsists->viewport(), this))
{
    m_model->SetRemarkIcon(furnishing.icon("missing"));
    lvConsists->setModel(m_model);
    lvConsists->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lvConsists->setFrameShape(QFrame::NoFrame);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lvConsists);
    setFocusProxy(lvConsists);
    connectList(furnishing);
}

void ConsistListPane::connectList(const Furnishing &furnishing)
{
    connect(lvConsists, &ListView::MenuWanted, this,
            [popUp = furnishing.popUpConsistMenu](const QPoint &at) { popUp(at); });
    connect(lvConsists, &ListView::doubleClicked, this,
            [this](const QModelIndex &index) { m_window.EditConsist(m_model->Name(index.row())); });
    connect(lvConsists, &ListView::ReturnPressed, this, [this](Qt::KeyboardModifiers modifiers) {
        for (const std::string &name : SelectedConsists())
            if (modifiers == Qt::NoModifier)
                m_window.EditConsist(name);
            else
                m_window.ViewConsist(name);
    });
}

void ConsistListPane::Load()
{
    m_window.SetCaption(ConsistListCaption(m_window.Number(), m_window.Filter()));
    showNames();
    m_host.SetStatus(status());
}

/// The list keeps its position unless the filter has changed.
void ConsistListPane::showNames()
{
    const std::string &filter = m_window.Filter();
    lvConsists->SetHint(QString::fromStdString(
        EmptyListHint(m_window.Environment().installation, m_window.Environment().files, filter)));
    m_model->SetNames(
        ListConsists(m_window.Environment().installation, m_window.Environment().files, filter));
    lvConsists->ResetOnlyColumn();
    if (filter != m_listedFilter)
        lvConsists->scrollToTop();
    m_listedFilter = filter;
}

std::string ConsistListPane::status() const
{
    const std::string folder = m_window.Environment().installation.PathOf(kConsists);
    return m_window.Environment().files.IsClosed(folder)
               ? folder + " cannot be read"
               : host::Counted(m_model->Names().size(), "consist", "consists");
}

void ConsistListPane::FollowSave(const std::string &path)
{
    m_marks->Update(path);
}

void ConsistListPane::ShowProperties()
{
    std::string text = "Path:\t" + m_window.Environment().installation.PathOf(kConsists) +
                       "\r\n\r\nCount:\t" + std::to_string(m_model->rowCount());
    if (!host::MatchesEverything(m_window.Filter()))
        text += " (Filtered on " + m_window.Filter() + ")";
    m_window.Environment().dialogs.Message(text, "All Consists Properties",
                                           host::DialogIcon::Information);
}

app::PrintJob ConsistListPane::Print()
{
    QStringList names;
    for (const std::string &name : m_model->Names())
        names << QString::fromStdString(name);
    return {"Print Consist List",
            app::FrameOf(m_window.Caption(),
                         {host::Counted(m_model->Names().size(), "consist", "consists"),
                          m_window.Environment().installation.PathOf(kConsists)}),
            app::PrintNames(std::move(names))};
}

std::vector<std::string> ConsistListPane::SelectedConsists() const
{
    std::vector<std::string> names;
    for (const int row : lvConsists->SelectedRows())
        names.push_back(m_model->Name(row));
    return names;
}

std::string ConsistListPane::SelectedConsist() const
{
    const int row = lvConsists->SelectedRow();
    return row < 0 ? std::string() : m_model->Name(row);
}

} // namespace document
