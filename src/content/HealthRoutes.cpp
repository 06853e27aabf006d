// SPDX-License-Identifier: MIT
// The part of HealthRun that reads the routes' worlds.
#include "content/HealthRun.h"

#include "content/Timetable.h"
#include "content/WorldFile.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <tuple>

namespace content {

HealthRun::Unit HealthRun::service(const std::string &path) const
{
    Unit unit;
    unit.user = path;
    const ReadResult read = m_store.Read(path);
    if (!read.source || !IsService(*read.source)) {
        unit.drafts.push_back(DamagedFile(
            Kind::ServiceConsist, "damaged-service", path,
            read.source ? "there is no Service_Definition block" : read.fault, Severity::Error));
        return unit;
    }
    unit.name = NameOfService(*read.source);
    for (Reference &reference : ReferencesOfService(*read.source))
        addReference(std::move(reference), {path, {}, {}}, unit, &m_consistNames);
    return unit;
}

HealthRun::Unit HealthRun::activity(const std::string &path, const NamedFiles &services) const
{
    Unit unit;
    unit.user = path;
    const ReadResult read = m_store.Read(path);
    if (!read.source || !IsActivity(*read.source)) {
        unit.drafts.push_back(DamagedFile(
            Kind::ActivityService, "damaged-activity", path,
            read.source ? "there is no Tr_Activity block" : read.fault, Severity::Error));
        return unit;
    }
    const Context context{path, {}, FolderOfPath(FolderOfPath(path))};
    for (Reference &reference : ReferencesOfActivity(*read.source))
        addReference(std::move(reference), context, unit, &services);
    return unit;
}

HealthRun::Units HealthRun::timetables(const std::string &path) const
{
    std::vector<std::string> files = {path};
    std::string fault;
    std::string bytes = m_store.Bytes(path, fault);
    const std::string extension = host::path::Extension(path);
    if (fault.empty() && extension.starts_with("timetablelist")) {
        files.clear(); // all timetables beside the list are read anyway
        for (const std::string &name : TimetablesOfList(std::move(bytes)))
            if (auto found = m_snapshot->FindFile(PathIn(FolderOfPath(path), name));
                found && FolderOfPath(*found) != FolderOfPath(path))
                files.push_back(std::move(*found));
    }
    Units units;
    for (const std::string &file : files) {
        Unit &unit = units.emplace_back();
        unit.user = file;
        if (file != path || bytes.empty())
            bytes = m_store.Bytes(file, fault);
        if (!fault.empty())
            unit.drafts.push_back(DamagedFile(Kind::TimetableConsist, "damaged-timetable", file,
                                              fault, Severity::Error, Profile::OpenRails));
        for (Reference &reference : ReferencesOfTimetable(std::move(bytes)))
            addReference(std::move(reference), {file, {}, {}}, unit);
        bytes.clear();
    }
    return units;
}

std::vector<HealthRun::World> HealthRun::worldFiles() const
{
    std::vector<World> worlds;
    for (const std::string &name : m_snapshot->ListFolders(m_folders.routes)) {
        const std::string route = host::path::Join(m_folders.routes, name);
        const std::string folder = host::path::Join(route, "WORLD");
        const auto add = [&](const std::string &place, Profiles profiles) {
            for (const std::string &file : m_snapshot->ListFiles(place, "*.w"))
                if (auto found = m_snapshot->FindFile(host::path::Join(place, file)))
                    worlds.push_back({std::move(*found), route, profiles});
        };
        add(folder, Profiles::Both());
        add(host::path::Join(folder, "OpenRails"), Profile::OpenRails);
    }
    return worlds;
}

HealthRun::Unit HealthRun::world(const World &world) const
{
    Unit unit;
    unit.user = world.path;
    if ((world.profiles & m_options.profiles).Empty())
        return unit;
    std::string fault;
    std::string bytes = m_store.Bytes(world.path, fault);
    WorldFile file;
    if (fault.empty())
        file = ReadWorldFile(std::move(bytes));
    else
        file.fault = std::move(fault);
    if (!file.fault.empty())
        unit.drafts.push_back(DamagedFile(Kind::RouteShape, "unread-world", world.path,
                                          "the shapes of the file are not checked: " + file.fault,
                                          Severity::Note, world.profiles));
    for (Reference &reference : file.shapes)
        addRouteShape(std::move(reference), world, unit);
    return unit;
}

void HealthRun::moveUses(Unit &world, Unit &route)
{
    std::move(world.uses.begin(), world.uses.end(), std::back_inserter(route.uses));
    world.uses.clear();
}

void HealthRun::sortUses(Unit &route)
{
    const auto keyOf = [](const Unit::Use &use) {
        return std::tuple(std::string_view(use.file->path), use.profiles.Has(Profile::Msts));
    };
    std::sort(route.uses.begin(), route.uses.end(),
              [&](const auto &a, const auto &b) { return keyOf(a) < keyOf(b); });
    const auto end =
        std::unique(route.uses.begin(), route.uses.end(),
                    [&](const auto &a, const auto &b) { return keyOf(a) == keyOf(b); });
    route.uses.erase(end, route.uses.end());
}

/// Many files of a world name the same shapes, so a shape that is found is looked up once.
void HealthRun::addRouteShape(Reference reference, const World &world, Unit &unit) const
{
    const std::string key = world.route + '\n' + host::ToUpper(reference.wants);
    if (!m_options.keepAll && m_units.Find(key))
        return;
    Draft draft;
    draft.reference = std::move(reference);
    draft.reference.profiles = world.profiles;
    draft.file = world.path;
    draft.stock = world.route;
    draft.at = m_resolver.Resolve(draft.reference, {world.path, {}, world.route});
    follow(draft, world.route, unit);
    if (m_options.keepAll || draft.IsProblem())
        unit.drafts.push_back(std::move(draft));
    else if (world.profiles == Profiles::Both())
        m_units.Add(key, 0);
}

} // namespace content
