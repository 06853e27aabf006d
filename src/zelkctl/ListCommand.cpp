// SPDX-License-Identifier: MIT
#include "zelkctl/ListCommand.h"

#include "document/ConsistList.h"
#include "document/StockList.h"
#include "host/Filter.h"
#include "install/Route.h"
#include "zelkctl/EntryWriter.h"
#include "zelkctl/Session.h"

#include <memory>

namespace zelkctl {
namespace {

struct ListOptions
{
    std::string what;
    std::string filter;
    bool json = false;
};

void listConsists(Session &session, const std::string &filter, EntryWriter &entries)
{
    const install::Installation installation = OpenInstallation(session);
    const std::string folder = installation.PathOf(document::kConsists);
    for (const auto &name : document::ListConsists(installation, session.files, filter))
        entries.Add(name, {{"name", name}});
    if (session.files.IsClosed(folder))
        TellClosed(session, folder);
}

void listStock(Session &session, const std::string &filter, EntryWriter &entries)
{
    const install::Installation installation = OpenInstallation(session);
    document::StockScan scan(installation, session.files, filter);
    while (const auto items = scan.TakeFolder())
        for (const auto &[type, folder, shape] : *items) {
            std::string line = type;
            line.append("\t").append(folder).append("\t").append(shape);
            entries.Add(line, {{"type", type}, {"folder", folder}, {"shape", shape}});
        }
    for (const std::string &folder : scan.ClosedFolders())
        TellClosed(session, folder);
}

void listRoutes(Session &session, const std::string &filter, EntryWriter &entries)
{
    const install::Installation installation = OpenInstallation(session);
    for (const install::Route &route : install::InstalledRoutes(installation, session.files, true))
        if (host::MatchesFilter(route.folder, filter))
            entries.Add(ListText(route), {{"folder", route.folder}, {"name", route.name}});
    const std::string folder = installation.PathOf(install::kRoutes);
    if (session.files.IsClosed(folder))
        TellClosed(session, folder);
}

void list(Session &session, const ListOptions &options)
{
    EntryWriter entries(session.out, options.json);
    if (options.what == "consists")
        listConsists(session, options.filter, entries);
    else if (options.what == "stock")
        listStock(session, options.filter, entries);
    else
        listRoutes(session, options.filter, entries);
    entries.End();
}

} // namespace

void AddListCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<ListOptions>();
    CLI::App *command = app.add_subcommand("list", "List installed stock, consists or routes");
    command->add_option("what", options->what, "What to list")
        ->required()
        ->type_name("stock|consists|routes")
        ->check(CLI::IsMember({"stock", "consists", "routes"}).description(""));
    command
        ->add_option("--filter", options->filter,
                     "Only names that match: GP*, *freight or part of the name")
        ->type_name("F");
    command->add_flag("--json", options->json, "As a JSON array of objects");
    command->callback([&session, options] { list(session, *options); });
}

} // namespace zelkctl
