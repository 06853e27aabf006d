// SPDX-License-Identifier: MIT
#include "content/FoundElsewhere.h"

#include "content/OwnListings.h"
#include "content/SharedFiles.h"
#include "host/Text.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <unordered_map>

namespace content {
namespace {

using Drafts = std::vector<Draft>;

/// Returns the same text for all spellings of a path.
std::string keyOf(const std::string &path)
{
    return host::ToUpper(host::path::Absolute(path));
}

/// Reads files that name others, and resolves their references.
class NamingFiles
{
public:
    explicit NamingFiles(const std::string &root)
        : m_disk(root)
    {
    }

    /// Returns the references of a file as one simulator reads it; none if ZELK has no rules for
    /// this kind of file, or cannot read it.
    Drafts ReferencesOf(const std::string &file, Profile profile)
    {
        const auto path = m_disk.snapshot.FindFile(file);
        if (!path)
            return {};
        const std::string extension = host::path::Extension(*path);
        if (extension == "eng" || extension == "wag")
            return ofVehicle(*path, profile);
        if (extension == "con")
            return ofConsist(*path);
        const Kind kind = extension == "sms"   ? Kind::Sound
                          : extension == "cvf" ? Kind::Cab
                          : extension == "s"   ? Kind::Shape
                                               : Kind::Include;
        const auto shared = m_shared.Get(kind, *path, FolderOfPath(*path));
        return shared ? shared->drafts : Drafts{};
    }

private:
    Drafts ofVehicle(const std::string &path, Profile profile)
    {
        const VehicleFiles files =
            FindVehicle(m_disk.store, FolderOfPath(path), std::string(host::path::FileName(path)));
        const Vehicle vehicle(m_disk.store, files, profile);
        Drafts drafts;
        for (VehicleReference &each : content::ReferencesOf(vehicle, profile)) {
            const bool isShape = each.reference.kind == Kind::Shape;
            m_shared.Add(std::move(each.reference),
                         {vehicle.Files()[each.file].path, files.folder, {}}, drafts);
            const std::string shape = drafts.back().at[static_cast<std::size_t>(profile)].foundAt;
            if (isShape && !shape.empty())
                m_shared.Add(ReferenceToDescriptor(shape), {shape, {}, {}}, drafts);
        }
        return drafts;
    }
    Drafts ofConsist(const std::string &path)
    {
        const ReadResult read = m_disk.store.Read(path);
        Drafts drafts;
        if (read.source)
            for (Reference &reference : ReferencesOfConsist(*read.source))
                m_shared.Add(std::move(reference), {path, {}, {}}, drafts);
        return drafts;
    }

    OwnListings m_disk;
    Resolver m_resolver{m_disk.store, m_disk.folders};
    SharedFiles m_shared{m_resolver, true};
};

/// The worst answer of a simulator for each path of its references, by key.
using Answers = std::unordered_map<std::string, Answer>;

Answers answersOf(const Drafts &drafts, Profile profile)
{
    Answers answers;
    for (const Draft &draft : drafts) {
        const Answer answer = draft.at[static_cast<std::size_t>(profile)].answer;
        // A simulator that prefers another file, such as an override, does not look for the named
        // one; the other simulator does.
        for (const Resolution &resolution : draft.at)
            for (const std::string &path : resolution.looked) {
                Answer &worst = answers.try_emplace(keyOf(path), answer).first->second;
                worst = std::max(worst, answer);
            }
    }
    return answers;
}

/// True if every simulator finds the file in another place or does not need it.
bool isOtherwise(const std::vector<Answers> &simulators, const std::string &key)
{
    return std::all_of(simulators.begin(), simulators.end(), [&](const Answers &answers) {
        const auto answer = answers.find(key);
        return answer != answers.end() &&
               (answer->second == Answer::Elsewhere || answer->second == Answer::NotNeeded);
    });
}

} // namespace

FoundElsewhere::FoundElsewhere(std::string folder, Profiles profiles,
                               std::vector<MissedFile> missed)
    : m_folder(std::move(folder))
    , m_profiles(profiles)
    , m_missed(std::move(missed))
{
}

std::optional<std::size_t> FoundElsewhere::Count(const std::stop_token &stop) const
{
    std::map<std::string, std::set<std::string>> byFile; // keys of paths
    for (const MissedFile &missed : m_missed)
        byFile[missed.file].insert(keyOf(missed.path));
    std::vector<Profile> profiles;
    std::copy_if(kProfiles.begin(), kProfiles.end(), std::back_inserter(profiles),
                 [this](Profile profile) { return m_profiles.Has(profile); });
    NamingFiles files(m_folder);
    std::unordered_map<std::string, bool> otherwise; // by key; false if one file misses the path
    for (const auto &[file, keys] : byFile) {
        std::vector<Answers> answers;
        for (const Profile profile : profiles) {
            if (stop.stop_requested())
                return std::nullopt;
            answers.push_back(answersOf(files.ReferencesOf(file, profile), profile));
        }
        for (const std::string &key : keys) {
            bool &counts = otherwise.try_emplace(key, true).first->second;
            counts = counts && isOtherwise(answers, key);
        }
    }
    return static_cast<std::size_t>(std::count_if(otherwise.begin(), otherwise.end(),
                                                  [](const auto &each) { return each.second; }));
}

} // namespace content
