// SPDX-License-Identifier: MIT
#include "content/HealthRun.h"

#include "content/HealthFigures.h"
#include "host/Filter.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <map>
#include <set>

namespace content {
namespace {

constexpr std::string_view kOverrides = "OpenRails";

/// Returns the paths of the files in a folder that match one of the patterns.
std::vector<std::string> filesIn(host::Snapshot &folders, const std::string &folder,
                                 std::initializer_list<const char *> patterns)
{
    std::vector<std::string> files;
    for (const char *const pattern : patterns)
        for (const std::string &name : folders.ListFiles(folder, pattern))
            if (auto found = folders.FindFile(host::path::Join(folder, name)))
                files.push_back(std::move(*found));
    return files;
}

bool isBelow(const std::string &path, const std::string &folder)
{
    if (path.size() <= folder.size() || path[folder.size()] != host::path::kSeparator)
        return false;
    return path.starts_with(folder) || host::ToUpper(path).starts_with(host::ToUpper(folder));
}

/// Returns the rule that an include in this state breaks; "" if none or if it has another finding.
std::string ruleOfInclude(Include::State state)
{
    switch (state) {
    case Include::State::Missing:
        return "broken-include";
    case Include::State::Cycle:
        return "include-cycle";
    case Include::State::TooMany:
        return "include-depth";
    default:
        return {};
    }
}

const char *detailOfInclude(Include::State state)
{
    switch (state) {
    case Include::State::Cycle:
        return "the file includes itself";
    case Include::State::TooMany:
        return "includes are nested too deeply or are too many; the rest was not read";
    default:
        return "";
    }
}

Draft lostFirstLine(const std::string &path, const char *detail)
{
    Draft draft = DamagedFile(Kind::Include, "include-first-line", path, detail, Severity::Note,
                              Profile::OpenRails);
    draft.reference.line = 1;
    return draft;
}

} // namespace

HealthRun::HealthRun(host::GameFiles &files, const std::string &folder, HealthOptions options)
    : m_options(std::move(options))
    , m_begin(m_options.index.now())
    , m_snapshot(std::make_unique<host::Snapshot>(files))
    , m_store(*m_snapshot)
    , m_folders(*m_snapshot, folder)
    , m_resolver(m_store, m_folders)
    , m_shared(m_resolver, m_options.keepAll)
{
    openIndex(m_begin);
}

HealthRun::~HealthRun() = default;

template <typename Work, typename Take>
void HealthRun::workOn(std::size_t count, const Work &work, const Take &take)
{
    constexpr std::size_t kAhead = 512;
    using Result = decltype(work(std::size_t{0}));
    if (m_stopped || count == 0)
        return;
    m_total += count;
    host::Ahead<Result> ahead(count, work, m_options.workers, kAhead);
    while (!m_stopped) {
        std::optional<Result> result = ahead.Take();
        if (!result)
            return;
        take(std::move(*result));
        ++m_done;
        if (Progress)
            Progress(m_done, m_total);
        handOutPartial();
    }
}

HealthReport HealthRun::Run()
{
    m_store.FileRead = FileRead;
    if (!m_options.consists.empty()) {
        readConsists(m_options.consists);
    } else {
        readStock();
        if (m_options.filter.empty()) {
            readConsists(allConsists());
            readRoutes();
        }
        if (m_options.routes)
            readWorlds();
        saveIndex();
    }
    return report();
}

void HealthRun::readStock()
{
    std::vector<std::pair<std::string, bool>> folders; // path; true for end-of-train devices
    for (const bool isEot : {false, true}) {
        const std::string &parent = isEot ? m_folders.eot : m_folders.trainset;
        for (const std::string &name : m_snapshot->ListFolders(parent))
            if (host::MatchesFilter(name, m_options.filter))
                folders.emplace_back(host::path::Join(parent, name), isEot);
    }
    m_checked.stockFolders = folders.size();
    workOn(
        folders.size(),
        [&](std::size_t i) { return keptStockFolder(folders[i].first, folders[i].second); },
        [this](Units &&units) {
            for (Unit &unit : units) {
                addStock(unit.user);
                take(std::move(unit));
            }
        });
}

/// Remembers an engine or a wagon that both simulators find.
void HealthRun::addStock(const std::string &path)
{
    const bool isStock =
        host::path::HasExtension(path, "eng") || host::path::HasExtension(path, "wag");
    const std::string folder = FolderOfPath(path);
    if (isStock && FolderOfPath(folder) == m_folders.trainset)
        m_stock.insert(host::ToUpper(path.substr(m_folders.trainset.size() + 1)));
}

VehicleFiles HealthRun::filesOf(const std::string &folder, const std::string &name) const
{
    return FindVehicle(m_store, folder, name);
}

HealthRun::Units HealthRun::stockFolder(const std::string &folder, bool isEot) const
{
    Units units;
    if (m_snapshot->IsClosed(folder)) {
        units.emplace_back().user = folder;
        units.back().drafts.push_back(DamagedFile(Kind::ConsistVehicle, "unreadable-folder", folder,
                                                  "the folder cannot be listed",
                                                  Severity::Warning));
    }
    std::map<std::string, std::string> names; // by upper case
    for (const std::string &place : {folder, host::path::Join(folder, kOverrides)})
        for (const char *const pattern : {"*.eng", "*.wag", "*.eot"})
            if (isEot == (std::string_view(pattern) == "*.eot"))
                for (std::string &name : m_snapshot->ListFiles(place, pattern))
                    names.try_emplace(host::ToUpper(name), std::move(name));
    for (const auto &[key, name] : names)
        units.push_back(
            vehicle(filesOf(folder, name), isEot ? Profile::OpenRails : Profiles::Both()));
    return units;
}

HealthRun::Unit HealthRun::vehicle(const VehicleFiles &files, Profiles known) const
{
    Unit unit;
    unit.user = files.base.empty() ? files.overrideFile : files.base;
    const Profiles wanted = m_options.profiles & known;
    std::shared_ptr<const ReadResult> base;
    if (!files.base.empty())
        base = std::make_shared<const ReadResult>(m_store.Read(files.base));
    bool mstsIsSame = false;
    if (wanted.Has(Profile::OpenRails) && !files.For(Profile::OpenRails).empty()) {
        const Vehicle seen(m_store, files, Profile::OpenRails, base);
        mstsIsSame = files.overrideFile.empty() && seen.Includes().empty();
        const Profiles both = mstsIsSame ? wanted : Profiles(Profile::OpenRails);
        addVehicle(files, seen, both, unit);
        addIncludes(seen, unit);
    }
    if (wanted.Has(Profile::Msts) && !mstsIsSame && !files.base.empty())
        addVehicle(files, Vehicle(m_store, files, Profile::Msts, base), Profile::Msts, unit);
    return unit;
}

void HealthRun::addVehicle(const VehicleFiles &files, const Vehicle &vehicle, Profiles profiles,
                           Unit &unit) const
{
    // An include that was not read could have contained the Wagon block.
    if (vehicle.Files().empty() || (!IsVehicle(vehicle) && !vehicle.MayLackBlocks())) {
        const std::string fault =
            vehicle.Files().empty() ? vehicle.Fault() : "there is no Wagon block";
        const Profile first = profiles.Has(Profile::OpenRails) ? Profile::OpenRails : Profile::Msts;
        unit.drafts.push_back(DamagedFile(Kind::ConsistVehicle, "damaged-vehicle", files.For(first),
                                          fault, Severity::Error, profiles));
        return;
    }
    for (Draft &draft : UnreadableFigures(vehicle, profiles))
        unit.drafts.push_back(std::move(draft));
    std::vector<VehicleReference> references = ReferencesOf(vehicle, profiles);
    const bool has2dCab = std::any_of(references.begin(), references.end(), [](const auto &each) {
        return each.reference.kind == Kind::Cab;
    });
    for (VehicleReference &each : references) {
        const Context context{vehicle.Files()[each.file].path, files.folder, {}};
        Draft draft;
        draft.reference = std::move(each.reference);
        draft.file = context.file;
        if (!isBelow(context.file, files.folder))
            draft.stock = files.folder;
        draft.at = m_resolver.Resolve(draft.reference, context);
        follow(draft, files.folder, unit);
        if (draft.reference.kind == Kind::Cab3d)
            addCabOf3dCab(draft, files.folder, has2dCab, unit);
        if (m_options.keepAll || draft.IsProblem())
            unit.drafts.push_back(std::move(draft));
    }
}

void HealthRun::addIncludes(const Vehicle &vehicle, Unit &unit) const
{
    if (vehicle.LosesLine())
        unit.drafts.push_back(lostFirstLine(vehicle.Files().front().path,
                                            "the first line of a file with includes is not read"));
    for (const Include &include : vehicle.Includes()) {
        Draft draft;
        draft.reference.kind = Kind::Include;
        draft.reference.profiles = Profile::OpenRails;
        draft.reference.wants = include.wants;
        draft.reference.line = include.line;
        draft.file = vehicle.Files()[include.file].path;
        draft.at[0].answer = Answer::NotNeeded;
        draft.at[1].answer = include.foundAt.empty() ? Answer::Nowhere : Answer::Here;
        draft.at[1].foundAt = include.foundAt;
        draft.at[1].looked = include.looked;
        draft.rule = ruleOfInclude(include.state);
        draft.severity =
            include.state == Include::State::TooMany ? Severity::Warning : Severity::Error;
        draft.detail = detailOfInclude(include.state);
        if (m_options.keepAll || draft.IsProblem())
            unit.drafts.push_back(std::move(draft));
        if (include.state == Include::State::Damaged)
            unit.drafts.push_back(DamagedFile(Kind::Include, "damaged-include", include.foundAt,
                                              include.fault, Severity::Error, Profile::OpenRails));
        if (include.losesLine)
            unit.drafts.push_back(
                lostFirstLine(include.foundAt, "the first line of an included file is not read"));
    }
}

void HealthRun::addCabOf3dCab(const Draft &cab, const std::string &stock, bool has2dCab,
                              Unit &unit) const
{
    const Resolution &shape = cab.at[static_cast<std::size_t>(Profile::OpenRails)];
    if (shape.foundAt.empty())
        return;
    Draft draft;
    draft.reference.kind = Kind::Cab;
    draft.reference.profiles = Profile::OpenRails;
    draft.reference.wants = host::path::BaseName(shape.foundAt) + ".cvf";
    draft.reference.line = cab.reference.line;
    draft.file = cab.file;
    draft.stock = cab.stock;
    draft.at[0].answer = Answer::NotNeeded;
    Resolution &found = draft.at[1];
    found.looked.push_back(PathIn(FolderOfPath(shape.foundAt), draft.reference.wants));
    found.foundAt = m_snapshot->FindFile(found.looked.front()).value_or("");
    found.answer = !found.foundAt.empty() ? Answer::Here
                   : has2dCab             ? Answer::Elsewhere
                                          : Answer::Nowhere;
    follow(draft, stock, unit);
    if (m_options.keepAll || draft.IsProblem())
        unit.drafts.push_back(std::move(draft));
}

void HealthRun::follow(const Draft &draft, const std::string &stock, Unit &unit) const
{
    const std::string &msts = draft.at[0].foundAt, &openRails = draft.at[1].foundAt;
    const auto add = [&](const std::string &path, Profiles profiles) {
        if (path.empty())
            return;
        auto file = m_shared.Get(draft.reference.kind, path, stock);
        if (file && !file->drafts.empty())
            unit.uses.push_back({std::move(file), profiles});
    };
    if (msts == openRails)
        return add(msts, Profiles::Both());
    add(msts, Profile::Msts);
    add(openRails, Profile::OpenRails);
}

std::string HealthRun::unitKey(const Reference &reference)
{
    return reference.name.folder + host::path::kSeparator + reference.name.file;
}

/// Large collections have several hundred thousand units, but most name the same vehicles.
bool HealthRun::isKnownUnit(const Reference &reference) const
{
    if (!skipsKnownUnits())
        return false;
    const std::string key = unitKey(reference);
    if (isInStock(key))
        return true;
    // A record needs the look-ups.
    return !(m_index && host::Recording::Current()) && m_units.Find(key);
}

/// Returns the text of a unit's data block, which most consists share with others.
std::string_view HealthRun::spellingOf(const Block &data)
{
    const stavfile::Record &record = data.Source().records[data.Record()];
    return std::string_view(data.Source().text).substr(record.begin, record.end - record.begin);
}

bool HealthRun::addReference(Reference reference, const Context &context, Unit &unit,
                             const NamedFiles *named) const
{
    const Kind kind = reference.kind;
    const bool isUnit = kind == Kind::ConsistVehicle || kind == Kind::ActivityVehicle;
    if (isUnit && isKnownUnit(reference))
        return true;
    Draft draft;
    draft.reference = std::move(reference);
    draft.file = context.file;
    draft.at = m_resolver.Resolve(draft.reference, context, named);
    if (kind == Kind::ConsistVehicle || kind == Kind::ConsistEot)
        for (const Resolution &resolution : draft.at)
            if (!m_options.consists.empty() && !resolution.foundAt.empty())
                unit.vehicles.push_back(resolution.foundAt);
    const bool isProblem = draft.IsProblem();
    if (m_options.keepAll || isProblem)
        unit.drafts.push_back(std::move(draft));
    else if (isUnit)
        m_units.Add(unitKey(draft.reference), 0);
    return !isProblem;
}

std::vector<std::string> HealthRun::allConsists() const
{
    return filesIn(*m_snapshot, m_folders.consists, {"*.con"});
}

void HealthRun::readConsists(const std::vector<std::string> &consists)
{
    std::vector<std::string> vehicles;
    m_checked.consists = consists.size();
    workOn(
        consists.size(), [&](std::size_t i) { return keptConsist(consists[i]); },
        [&](Unit &&unit) {
            if (!unit.name.empty())
                m_consistNames.try_emplace(host::ToUpper(unit.name), unit.user);
            std::move(unit.vehicles.begin(), unit.vehicles.end(), std::back_inserter(vehicles));
            take(std::move(unit));
        });
    readNamedVehicles(vehicles);
}

void HealthRun::readNamedVehicles(const std::vector<std::string> &vehicles)
{
    std::map<std::string, std::pair<VehicleFiles, bool>> distinct; // by path in upper case
    for (const std::string &path : vehicles) {
        std::string folder = FolderOfPath(path);
        const bool isOverride = Block::SameName(host::path::FileName(folder), kOverrides);
        if (isOverride)
            folder = FolderOfPath(folder);
        const std::string name(host::path::FileName(path));
        const std::string key = host::ToUpper(host::path::Join(folder, name));
        if (!distinct.contains(key))
            distinct.emplace(
                key, std::pair(filesOf(folder, name), host::path::HasExtension(name, "eot")));
    }
    std::vector<std::pair<VehicleFiles, bool>> listed;
    for (auto &[key, files] : distinct)
        listed.push_back(std::move(files));
    workOn(
        listed.size(),
        [&](std::size_t i) {
            return vehicle(listed[i].first,
                           listed[i].second ? Profile::OpenRails : Profiles::Both());
        },
        [this](Unit &&unit) { take(std::move(unit)); });
}

HealthRun::Unit HealthRun::consist(const std::string &path) const
{
    Unit unit;
    unit.user = path;
    const ReadResult read = m_store.Read(path);
    if (!read.source || !IsConsist(*read.source)) {
        unit.drafts.push_back(DamagedFile(Kind::ConsistVehicle, "damaged-consist", path,
                                          read.source ? "there is no Train block" : read.fault,
                                          Severity::Error));
        return unit;
    }
    unit.name = NameOfConsist(*read.source);
    KnownTexts &spellings = m_spellings[static_cast<std::size_t>(read.source->encoding)];
    const auto isKnown = [&](const Block &data) {
        return skipsKnownUnits() && isKnownSpelling(spellings, spellingOf(data));
    };
    for (UnitReference &each : UnitsOfConsist(*read.source, isKnown)) {
        const std::string key = unitKey(each.reference);
        if (addReference(std::move(each.reference), {path, {}, {}}, unit) && skipsKnownUnits())
            addSpelling(spellings, spellingOf(each.data), key);
    }
    return unit;
}

void HealthRun::readRoutes()
{
    std::vector<std::string> services, activities, tables;
    const auto append = [](std::vector<std::string> &to, std::vector<std::string> &&from) {
        std::move(from.begin(), from.end(), std::back_inserter(to));
    };
    for (const std::string &name : m_snapshot->ListFolders(m_folders.routes)) {
        const std::string route = host::path::Join(m_folders.routes, name);
        const std::string acts = host::path::Join(route, "ACTIVITIES");
        append(services, filesIn(*m_snapshot, host::path::Join(route, "SERVICES"), {"*.srv"}));
        append(activities, filesIn(*m_snapshot, acts, {"*.act"}));
        append(tables, filesIn(*m_snapshot, host::path::Join(acts, kOverrides),
                               {"*.timetable-or", "*.timetable_or", "*.timetablelist-or",
                                "*.timetablelist_or"}));
    }
    m_checked.services = services.size();
    m_checked.activities = activities.size();
    m_checked.timetables = tables.size();
    std::map<std::string, NamedFiles> named; // by route
    workOn(
        services.size(), [&](std::size_t i) { return service(services[i]); },
        [&](Unit &&unit) {
            const std::string route = FolderOfPath(FolderOfPath(unit.user));
            if (!unit.name.empty())
                named[route].try_emplace(host::ToUpper(unit.name), unit.user);
            take(std::move(unit));
        });
    const NamedFiles none;
    workOn(
        activities.size(),
        [&](std::size_t i) {
            const auto found = named.find(FolderOfPath(FolderOfPath(activities[i])));
            return activity(activities[i], found == named.end() ? none : found->second);
        },
        [&](Unit &&unit) { take(std::move(unit)); });
    workOn(
        tables.size(), [&](std::size_t i) { return timetables(tables[i]); },
        [&](Units &&units) {
            for (Unit &unit : units)
                take(std::move(unit));
        });
}

void HealthRun::readWorlds()
{
    const std::vector<World> worlds = worldFiles();
    std::map<std::string, Unit> routes; // by folder
    std::size_t next = 0;
    workOn(
        worlds.size(), [&](std::size_t i) { return world(worlds[i]); },
        [&](Unit &&unit) {
            moveUses(unit, routes[worlds[next++].route]);
            take(std::move(unit));
        });
    for (auto &[folder, unit] : routes) {
        unit.user = folder;
        sortUses(unit);
        take(std::move(unit));
    }
}

void HealthRun::take(Unit &&unit)
{
    if (unit.drafts.empty() && unit.uses.empty())
        return;
    const auto user = static_cast<std::uint32_t>(m_users.size());
    m_users.push_back(std::move(unit.user));
    for (const Draft &draft : unit.drafts)
        merge(draft, user, draft.reference.profiles);
    for (const Unit::Use &use : unit.uses)
        for (const Draft &draft : use.file->drafts)
            merge(draft, user, use.profiles & draft.reference.profiles);
}

void HealthRun::merge(const Draft &draft, std::uint32_t user, Profiles profiles)
{
    if (profiles.Empty())
        return;
    const auto [file, wants] = identityOf(draft);
    const std::string key = file + '\n' + KindName(draft.reference.kind) + '\n' + wants + '\n' +
                            draft.stock + '\n' + (IsProblem(draft.at[1].answer) ? "" : draft.rule);
    const auto [place, isNew] = m_byKey.try_emplace(key, m_merged.size());
    if (isNew)
        m_merged.push_back({draft, profiles, {}});
    Merged &merged = m_merged[place->second];
    for (const Profile profile : kProfiles)
        if (profiles.Has(profile) && !merged.profiles.Has(profile))
            merged.draft.at[static_cast<std::size_t>(profile)] =
                draft.at[static_cast<std::size_t>(profile)];
    merged.profiles = merged.profiles | profiles;
    if (!merged.users.empty() && merged.users.back().first == user)
        merged.users.back().second = merged.users.back().second | profiles;
    else
        merged.users.emplace_back(user, profiles);
}

} // namespace content
