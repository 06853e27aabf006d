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
#include "ui/document/ListSearch.h"
#include "ui/document/MissingMarks.h"
#include "ui/document/StockFigures.h"
#include "ui/document/TrainStrip.h"
#include "ui/document/frmDocument.h"
#include "ui/widgets/SearchField.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace document {

ConsistListPane::ConsistListPane(frmDocument &window, DocumentHost &host,
                                 const Furnishing &furnishing)
    : lvConsists(new ListView("lvConsists", QStringLiteral("Installed consists"), this))
    , searchConsists(new SearchField("searchConsists", QStringLiteral("Search the consists"), this))
    , strip(new TrainStrip(*furnishing.figures, this))
    , m_window(window)
    , m_host(host)
    , m_model(new ConsistListModel(this))
    , m_marks(new ConsistMarks(window.Environment(), *m_model, *lvConsists->viewport(), this))
    , m_figures(*furnishing.figures)
{
    m_model->SetRemarkIcon(furnishing.icon("missing"));
    lvConsists->setModel(m_model);
    lvConsists->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *top = new QHBoxLayout;
    top->setContentsMargins(6, 6, 6, 6);
    top->addWidget(searchConsists);
    layout->addLayout(top);
    layout->addWidget(lvConsists, 1);
    strip->setContentsMargins(8, 5, 6, 5);
    layout->addWidget(strip);
    setFocusProxy(lvConsists);
    connectList(furnishing);
    addSearch();
    QPushButton &choose = lvConsists->AddHintButton(
        "cmdChooseInstallation", QStringLiteral("Choose the installation\u2026"));
    connect(&choose, &QPushButton::clicked, this, [this] { m_host.ChooseInstallation(); });
    setTabOrder(lvConsists, &choose);
    setTabOrder(&choose, strip->cmdUnits);
}

void ConsistListPane::addSearch()
{
    m_search =
        new ConsistSearch(*searchConsists, *lvConsists, *m_model, m_window.Environment(), this);
    auto *key = new QShortcut(Qt::CTRL | Qt::Key_K, this);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, this, [this] {
        searchConsists->setFocus(Qt::ShortcutFocusReason);
        searchConsists->selectAll();
    });
    // The arrow keys may pass many consists.
    constexpr int pause = 60;
    m_showFigures.setSingleShot(true);
    m_showFigures.setInterval(pause);
    connect(&m_showFigures, &QTimer::timeout, this, &ConsistListPane::showFigures);
    connect(lvConsists->selectionModel(), &QItemSelectionModel::selectionChanged, &m_showFigures,
            qOverload<>(&QTimer::start));
    connect(m_model, &QAbstractItemModel::modelReset, &m_showFigures, qOverload<>(&QTimer::start));
    strip->ShowConsist({});
}

void ConsistListPane::showFigures()
{
    const std::string name = SelectedConsist();
    if (name == m_figuresOf)
        return;
    m_figuresOf = name;
    strip->ShowConsist(name.empty() ? name : m_window.Environment().installation.ConsistPath(name));
}

void ConsistListPane::Refresh()
{
    Load();
    m_figures.Forget();
    m_search->Forget();
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
    const EmptyListNote note =
        EmptyListHint(m_window.Environment().installation, m_window.Environment().files, filter);
    lvConsists->SetHint(QString::fromStdString(note.text), note.concernsLocation);
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
    FollowChanges({path});
}

void ConsistListPane::FollowChanges(const std::vector<std::string> &paths)
{
    m_marks->Update(paths);
    m_search->Forget();
    m_figuresOf.clear();
    m_showFigures.start();
}

void ConsistListPane::ShowProperties()
{
    std::string text = "Path:\t" + m_window.Environment().installation.PathOf(kConsists) +
                       "\r\n\r\nCount:\t" + std::to_string(m_model->NameCount());
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
