// SPDX-License-Identifier: MIT
#include "zelkctl/ReplaceCommand.h"

#include "document/ConsistList.h"
#include "document/ReplacementPlan.h"
#include "document/StockReplacement.h"
#include "host/ChangeJournal.h"
#include "host/Console.h"
#include "host/Disk.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Route.h"
#include "zelkctl/Session.h"

#include <memory>
#include <set>

namespace zelkctl {
namespace {

struct ReplaceOptions
{
    std::string from, to;
    std::vector<std::string> consists;
    bool activities = false;
    bool dryRun = false;
};

/// A file to search, and how the output names it.
struct Target
{
    std::string path, name;
};

/// Writes a line to stderr; the command continues.
void remark(const std::string &text)
{
    host::WriteTo(host::Stream::Error, "zelkctl: " + text + '\n');
}

install::StockItem vehicleOf(const std::string &text)
{
    const auto vehicle = document::VehicleOf(text);
    if (!vehicle)
        throw Failure(text + ": a vehicle is given as FOLDER/NAME.eng or FOLDER/NAME.wag");
    if (text.find('"') != text.npos)
        throw Failure(text + ": the name of a vehicle cannot hold quotes");
    return *vehicle;
}

/// Adds the files of a folder with an extension, each with the prefix in front of its name.
void addFiles(Session &session, const std::string &folder, const std::string &prefix,
              const std::string &extension, std::vector<Target> &targets)
{
    for (const std::string &name : session.files.ListFiles(folder, '*' + extension))
        targets.push_back(
            {host::path::Join(folder, name),
             prefix.empty() ? name.substr(0, name.size() - extension.size()) : prefix + name});
    if (session.files.IsClosed(folder))
        throw Failure(folder + ": this folder cannot be listed");
}

/// Returns the same text for all spellings of a path.
std::string keyOf(const std::string &path)
{
    std::string key = host::path::Absolute(path);
    return host::disk::kIgnoresCase ? host::ToUpper(key) : key;
}

/// Throws Failure if a folder cannot be listed: its files may use the vehicle.
std::vector<Target> targetsOf(Session &session, const install::Installation &installation,
                              const ReplaceOptions &options)
{
    std::vector<Target> targets;
    std::set<std::string> seen;
    for (const std::string &name : options.consists)
        if (std::string path = ConsistFile(session, installation, name);
            seen.insert(keyOf(path)).second)
            targets.push_back({path, name});
    if (options.consists.empty())
        addFiles(session, installation.PathOf(document::kConsists), "", ".con", targets);
    if (!options.activities)
        return targets;
    const std::string routes = installation.PathOf(install::kRoutes);
    if (session.files.IsClosed(routes))
        throw Failure(routes + ": this folder cannot be listed");
    for (const install::Route &route : install::InstalledRoutes(installation, session.files, false))
        addFiles(session, host::path::Join(host::path::Join(routes, route.folder), "Activities"),
                 route.folder + '/', ".act", targets);
    return targets;
}

std::string lineOf(const std::string &name, const document::UnitInUse &unit,
                   const std::string &type)
{
    std::string place = std::to_string(unit.number);
    if (unit.loose > 0)
        place = std::to_string(unit.loose) + '.' + place;
    return name + '\t' + place + '\t' + document::VehicleText({type, unit.folder, unit.name}) +
           '\n';
}

/// Writes one line for each unit; returns the text that counts them.
std::string writeUnits(Session &session, const document::FoundInUse &found,
                       const std::vector<Target> &targets, const std::string &type)
{
    std::size_t units = 0;
    auto target = targets.begin();
    for (const document::FileInUse &file : found.files) {
        while (target->path != file.path)
            ++target; // both lists have the same order
        for (const document::UnitInUse &unit : file.units)
            session.out.Write(lineOf(target->name, unit, type));
        units += file.units.size();
    }
    return host::Counted(units, "unit", "units") + " in " +
           host::Counted(found.files.size(), "file", "files");
}

void warnIfNotInstalled(Session &session, const install::Installation &installation,
                        const install::StockItem &vehicle)
{
    const std::string path = install::StockPath(installation.CurrentFolder(), vehicle);
    const std::string folder = host::path::Folder(path);
    const std::string override =
        host::path::Join(host::path::Join(folder, "OpenRails"), host::path::FileName(path));
    if (!session.files.FileExists(path) && !session.files.FileExists(override))
        remark("warning: " + document::VehicleText(vehicle) + " is not installed");
}

/// Reports the files that cannot be searched. They may use the vehicle, so nothing may be written.
void reportFaults(Session &session, const document::FoundInUse &found, bool dryRun)
{
    if (found.faults.empty())
        return;
    session.out.Flush();
    for (const std::string &fault : found.faults)
        remark(fault);
    if (!dryRun)
        throw Failure("Nothing was changed, because " +
                      host::Counted(found.faults.size(), "file", "files") +
                      " may use the vehicle and cannot be searched. --consist limits the search.");
    session.exitCode = kCouldNotRun;
}

void recover(host::ChangeJournal &journal)
{
    for (const std::string &message : journal.Recover())
        remark(message);
}

/// Throws Failure if the change failed; then no file is changed.
void apply(host::ChangeJournal &journal, const document::StockReplacement &replacement,
           document::FoundInUse &found)
{
    try {
        std::vector<host::FileChange> changes;
        for (document::FileInUse &file : found.files) {
            host::FileChange change = replacement.ChangeOf(file);
            file.bytes = {};
            if (change.after != change.before)
                changes.push_back(std::move(change));
        }
        journal.Apply(document::ReplacementTitle(replacement.From(), replacement.To()), changes);
    } catch (const host::RuntimeError &error) {
        throw Failure(error.what());
    }
}

void replace(Session &session, const ReplaceOptions &options)
{
    const install::StockItem from = vehicleOf(options.from), to = vehicleOf(options.to);
    if (from.type != to.type)
        throw Failure(options.from + " cannot be replaced by " + options.to +
                      ": an engine can only be replaced by an engine, a wagon only by a wagon");
    const document::StockReplacement replacement(session.files, from, to);
    const install::Installation installation = OpenInstallation(session);
    host::ChangeJournal journal;
    if (!options.dryRun)
        recover(journal);
    const std::vector<Target> targets = targetsOf(session, installation, options);
    std::vector<std::string> paths;
    for (const Target &target : targets)
        paths.push_back(target.path);
    document::FoundInUse found = document::FindInUse(replacement, paths);
    if (!options.dryRun)
        reportFaults(session, found, false);
    if (!found.files.empty())
        warnIfNotInstalled(session, installation, to);
    if (!options.dryRun)
        apply(journal, replacement, found);
    session.out.OutliveReader();
    const std::string count = writeUnits(session, found, targets, from.type);
    session.out.Flush();
    if (options.dryRun)
        reportFaults(session, found, true);
    if (found.files.empty())
        remark(options.from + ": no unit uses this vehicle, so there is nothing to replace");
    else if (!options.dryRun)
        session.out.Write("Replaced " + count + ". zelkctl undo takes this back.\n");
}

void undo(Session &session)
{
    host::ChangeJournal journal;
    recover(journal);
    try {
        const host::ChangeRecord taken = journal.Undo();
        session.out.Write("Took back \"" + taken.title + "\" in " +
                          host::Counted(taken.files.size(), "file", "files") + ".\n");
    } catch (const host::RuntimeError &error) {
        throw Failure(error.what());
    }
}

} // namespace

void AddReplaceCommand(CLI::App &app, Session &session)
{
    const auto options = std::make_shared<ReplaceOptions>();
    CLI::App *command = app.add_subcommand("replace", "Replace a vehicle in all consists");
    command->add_option("vehicle", options->from, "The vehicle to replace, installed or missing")
        ->required()
        ->type_name("FOLDER/NAME.wag");
    command->add_option("replacement", options->to, "The vehicle that takes its place")
        ->required()
        ->type_name("FOLDER/NAME.wag");
    command->add_flag("--dry-run", options->dryRun, "Only list the units");
    command
        ->add_option("--consist", options->consists, "Only in these consists, by name or as files")
        ->type_name("NAME");
    command->add_flag("--activities", options->activities,
                      "Also in the loose consists of the activities");
    command->footer(
        "Lists each unit: the consist, the number of the unit, the vehicle as the file "
        "names it.\nAll files are changed or none; zelkctl undo takes the change back.");
    command->callback([&session, options] { replace(session, *options); });
}

void AddUndoCommand(CLI::App &app, Session &session)
{
    CLI::App *command =
        app.add_subcommand("undo", "Take back the last change of several files (replace)");
    command->callback([&session] { undo(session); });
}

} // namespace zelkctl
