// SPDX-License-Identifier: MIT
#include "content/MissingVehicles.h"

#include "content/OwnListings.h"
#include "host/Text.h"

#include <set>

namespace content {
namespace {

std::size_t indexOf(Profile profile)
{
    return static_cast<std::size_t>(profile);
}

/// Returns "MSTS does not", "Open Rails does not" or "MSTS and Open Rails do not".
std::string doNot(Profiles profiles)
{
    if (profiles == Profiles::Both())
        return "MSTS and Open Rails do not";
    return profiles.Has(Profile::Msts) ? "MSTS does not" : "Open Rails does not";
}

std::string sentence(const std::string &path, const std::string &reason)
{
    return "The file " + path + " is missing: " + reason + '.';
}

std::string keyOf(const Reference &reference)
{
    return host::ToUpper(reference.name.folder + '/' + reference.name.file);
}

} // namespace

struct MissingVehicles::Disk : OwnListings
{
    using OwnListings::OwnListings;

    Resolver resolver{store, folders};
};

MissingVehicles::MissingVehicles(std::string folder, Profiles profiles)
    : m_folder(std::move(folder))
    , m_profiles(profiles)
{
}

MissingVehicles::~MissingVehicles() = default;

MissingVehicles::Disk &MissingVehicles::disk()
{
    std::call_once(m_opened, [this] { m_disk = std::make_unique<Disk>(m_folder); });
    return *m_disk;
}

std::string MissingVehicles::WhyMissing(const install::StockItem &vehicle)
{
    if (m_stopped || m_folder.empty())
        return {};
    Reference reference;
    reference.kind = Kind::ConsistVehicle;
    reference.name = {vehicle.folder, install::StockFileName(vehicle.type, vehicle.shape)};
    return whyMissing(reference);
}

std::string MissingVehicles::WhyMissingIn(const std::string &consist)
{
    if (m_stopped || m_folder.empty())
        return {};
    const auto given = host::GamePath::Of(consist);
    const auto path = given ? disk().snapshot.FindFile(given->text) : std::nullopt;
    const ReadResult read = path ? disk().store.Read(*path) : ReadResult{};
    if (!read.source)
        return {};
    std::string first;
    std::set<std::string> missing; // keys
    for (const Reference &reference : ReferencesOfConsist(*read.source)) {
        if (m_stopped)
            return {};
        if (reference.kind != Kind::ConsistVehicle || missing.contains(keyOf(reference)))
            continue;
        const std::string &why = whyMissing(reference);
        if (why.empty())
            continue;
        if (first.empty())
            first = why;
        missing.insert(keyOf(reference));
    }
    if (missing.size() < 2)
        return first;
    return first + "  The consist has " +
           host::Counted(missing.size() - 1, "other vehicle", "other vehicles") +
           " with a missing file.";
}

const std::string &MissingVehicles::whyMissing(const Reference &reference)
{
    // Other values of the entry may change the answer for this name.
    const std::string key = keyOf(reference) + (reference.meant.empty() ? "" : "/unquoted");
    {
        const std::lock_guard lock(m_mutex);
        if (const auto known = m_known.find(key); known != m_known.end())
            return known->second;
    }
    std::string why = judge(reference);
    const std::lock_guard lock(m_mutex);
    return m_known.try_emplace(key, std::move(why)).first->second;
}

std::string MissingVehicles::judge(const Reference &reference)
{
    Disk &disk = this->disk();
    const std::string folder = PathIn(disk.folders.trainset, reference.name.folder);
    const auto at = disk.resolver.Resolve(reference, {});
    Profiles missing;
    std::string path;
    for (const Profile profile : kProfiles) {
        const Resolution &resolution = at[indexOf(profile)];
        if (!m_profiles.Has(profile) || resolution.answer != Answer::Nowhere ||
            resolution.looked.empty())
            continue;
        missing = missing | profile;
        path = resolution.looked.back(); // the override, which comes first, is optional
    }
    if (missing.Empty())
        return judgeShape(FindVehicle(disk.store, folder, reference.name.file));
    if (!disk.snapshot.FolderExists(folder))
        return sentence(path, "the stock folder " + reference.name.folder + " is not installed");
    if (disk.snapshot.IsClosed(folder)) // the file may be in it
        return {};
    return sentence(path, doNot(missing) + " find this vehicle");
}

std::string MissingVehicles::judgeShape(const VehicleFiles &files)
{
    Disk &disk = this->disk();
    std::shared_ptr<const ReadResult> base;
    if (!files.base.empty())
        base = std::make_shared<const ReadResult>(disk.store.Read(files.base));
    Profiles missing;
    std::string path;
    for (const Profile profile : kProfiles) {
        if (!m_profiles.Has(profile) || files.For(profile).empty())
            continue;
        const Vehicle vehicle(disk.store, files, profile, base);
        for (const VehicleReference &each : ReferencesOf(vehicle, profile)) {
            if (each.reference.kind != Kind::Shape)
                continue;
            const Context context{vehicle.Files()[each.file].path, files.folder, {}};
            const auto at = disk.resolver.Resolve(each.reference, context);
            const Resolution &resolution = at[indexOf(profile)];
            if (resolution.answer != Answer::Nowhere || resolution.looked.empty())
                continue;
            missing = missing | profile;
            path = resolution.looked.front();
        }
    }
    return missing.Empty() || disk.snapshot.IsClosed(FolderOfPath(path))
               ? std::string()
               : sentence(path, doNot(missing) + " find the shape of this vehicle");
}

} // namespace content
