// SPDX-License-Identifier: MIT
// The commands of frmHealth on its selection.
#include "content/HealthFormats.h"
#include "content/HealthSettings.h"
#include "content/HelpText.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/Guard.h"
#include "host/Path.h"
#include "host/Product.h"
#include "host/Text.h"
#include "ui/health/HealthFilterBar.h"
#include "ui/health/HealthView.h"
#include "ui/health/frmHealth.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPointer>

#include <functional>

using content::HealthTree;
using document::Guarded;
using health::HealthModel;

namespace {

constexpr char kSave[] = "Save Health Report", kAccept[] = "Accept as Known";

/// Returns the report in the format that the extension of the file name selects.
std::string textFor(const std::string &extension, const content::HealthReport &report)
{
    std::string text;
    const content::TextSink append = [&text](std::string_view piece) { text += piece; };
    if (extension == "csv")
        content::WriteHealthCsv(report, append);
    else if (extension == "json")
        content::WriteHealthJson(report, append);
    else
        content::WriteHealthHtml(report, append);
    return text;
}

} // namespace

void frmHealth::Accept()
{
    changeKnown(tvFindings->SelectedFindings(), true);
}

void frmHealth::Withdraw()
{
    changeKnown(tvFindings->SelectedFindings(), false);
}

void frmHealth::AcceptAll()
{
    const HealthTree *tree = tvFindings->Rows().Tree();
    std::vector<const content::Finding *> shown;
    if (tree)
        for (const HealthTree::WantedRow &wanted : tree->Wanted())
            for (const std::uint32_t finding : wanted.findings)
                shown.push_back(&tree->Index().Report().findings[finding]);
    changeKnown(shown, true);
}

void frmHealth::changeKnown(const std::vector<const content::Finding *> &findings, bool accept)
{
    if (findings.empty() || !canAccept())
        return;
    Guarded(m_environment.dialogs, kAccept,
            [&] { accept ? m_known.Accept(findings) : m_known.Withdraw(findings); });
    filter();
}

void frmHealth::DropGone()
{
    if (!canAccept() || !m_consists.empty())
        return;
    Guarded(m_environment.dialogs, kAccept, [this] { m_known.DropGone(m_index->Report()); });
    filter();
}

void frmHealth::keepProfiles(content::Profiles profiles)
{
    Guarded(m_environment.dialogs, "Health Report",
            [&] { content::KeepProfiles(m_environment.settings, m_folder, profiles); });
}

std::string frmHealth::ReportText() const
{
    std::string text;
    if (const HealthTree *tree = tvFindings->Rows().Tree())
        content::WriteHealthText(tree->ShownReport(), false, content::Colours::None,
                                 [&text](std::string_view piece) { text += piece; });
    return text;
}

void frmHealth::Copy() const
{
    const HealthModel &rows = tvFindings->Rows();
    std::string text;
    for (const QModelIndex &row : tvFindings->SelectedRows()) {
        const HealthModel::Node node = rows.NodeOf(row);
        text += text.empty() ? content::HelpHeader(host::product::ShownVersion(),
                                                   filterBar->Filter().profiles)
                             : "\n";
        text += node.cause    ? HelpText(*rows.Tree(), *node.cause)
                : node.wanted ? HelpText(*rows.Tree(), *node.wanted)
                              : HelpText(*rows.Tree(), *node.user);
    }
    if (!text.empty())
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

/// Returns the path of the current row's file or folder; "" if the row has none.
std::string frmHealth::pathOfCurrent() const
{
    const HealthModel::Node node = tvFindings->Current();
    if (node.user)
        return node.user->path;
    return node.wanted ? node.wanted->wanted->path : std::string();
}

void frmHealth::CopyPath() const
{
    if (const std::string path = pathOfCurrent(); !path.empty())
        QGuiApplication::clipboard()->setText(QString::fromStdString(content::ShownText(path)));
}

void frmHealth::openCurrent()
{
    if (const HealthModel::Node node = tvFindings->Current(); node.user)
        Q_EMIT OpenRequested(std::string(node.user->path)); // the tree may change meanwhile
}

void frmHealth::showMenu(const QPoint &position)
{
    const HealthModel::Node node = tvFindings->Current();
    const bool hasSelection = tvFindings->selectionModel()->hasSelection();
    const std::string path = pathOfCurrent();
    QMenu menu(this);
    const auto add = [&](const char *caption, bool enabled, const std::function<void()> &run) {
        QAction *action = menu.addAction(QLatin1String(caption));
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, run);
        return action;
    };
    menu.setDefaultAction(add("&Open", node.user != nullptr, [this] { openCurrent(); }));
    add("Show in &File Manager", !path.empty(), [this, path] { Q_EMIT FolderRequested(path); });
    menu.addSeparator();
    add("Copy as &Text", hasSelection, [this] { Copy(); });
    add("Copy &Path", !path.empty(), [this] { CopyPath(); });
    menu.addSeparator();
    add("&Accept as Known", hasSelection && canAccept(), [this] { Accept(); });
    add("Accept A&ll Shown", canAccept(), [this] { AcceptAll(); });
    add("&No Longer Known", hasSelection && canAccept(), [this] { Withdraw(); });
    add("Forget What Is &Gone",
        canAccept() && m_consists.empty() && m_known.Findings().CountGone(m_index->Report()) > 0,
        [this] { DropGone(); });
    menu.addSeparator();
    add("&Expand All", true, [this] { tvFindings->expandToDepth(0); });
    add("&Collapse All", true, [this] { tvFindings->collapseAll(); });
    menu.exec(position);
}

void frmHealth::Save()
{
    const HealthTree *tree = tvFindings->Rows().Tree();
    if (!tree)
        return;
    const content::HealthReport report = tree->ShownReport(); // a dialog lets a run go on
    const std::size_t hidden = tree->Hidden();
    const QPointer<frmHealth> self(this); // the program may end while a question is open
    std::string name = m_environment.dialogs.SaveFile(
        {kSave,
         "Web page (*.html)|*.html|Table (*.csv)|*.csv|JSON (*.json)|*.json",
         Caption() + ".html",
         {}});
    if (!self || name.empty())
        return;
    const std::string extension = host::path::Extension(host::path::FileName(name));
    if (extension != "html" && extension != "htm" && extension != "csv" && extension != "json")
        name += ".html";
    const bool replaces = m_environment.files.FileExists(name);
    if (replaces &&
        m_environment.dialogs.Message(name + " already exists.  Do you want to overwrite it?",
                                      kSave, host::DialogIcon::Question,
                                      host::DialogButtons::YesNo) != host::DialogAnswer::Yes)
        return;
    if (!self)
        return;
    const bool written = Guarded(m_environment.dialogs, kSave, [&] {
        m_environment.files.WriteFile(name, textFor(extension, report));
    });
    if (self && written)
        Q_EMIT StatusChanged(
            "Saved " + host::Counted(report.findings.size(), "finding", "findings") + " in " +
            name + (hidden > 0 ? "; " + std::to_string(hidden) + " hidden by the filters" : ""));
}
