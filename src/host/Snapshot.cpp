// SPDX-License-Identifier: MIT
#include "host/Snapshot.h"

#include "host/GamePath.h"
#include "host/Listings.h"

#include <mutex>
#include <unordered_map>

namespace host {

/// What folders of game paths are on the disk. Entries are made once and then only read, so that
/// the lock is held for the tables alone.
class Snapshot::Places
{
public:
    using Listings = GameFiles::Listings;
    using Listed = Listings::Listed;
    /// The folders of the disk that count as one, with their listings.
    using Place = std::vector<Listed>;

    explicit Places(Listings &listings)
        : m_listings(listings)
    {
    }

    /// The place of the first `depth` names of a path; an empty one when there is none.
    std::shared_ptr<const Place> Find(const GamePath &path, std::size_t depth)
    {
        std::size_t length = path.root.size();
        for (std::size_t i = 0; i < depth; ++i)
            length += path.names[i].size() + (i == 0 ? 0 : 1);
        if (auto known = lookUp(std::string_view(path.text).substr(0, length)))
            return known;
        return walk(path, depth);
    }

private:
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view>()(text);
        }
    };

    /// Step by step from the root, as far as there are folders.
    std::shared_ptr<const Place> walk(const GamePath &path, std::size_t depth)
    {
        std::string text = path.root;
        std::shared_ptr<const Place> place = lookUp(text);
        if (!place)
            place = keep(text, {listed(path.root)});
        for (std::size_t i = 0; i < depth && !place->empty(); ++i) {
            text += (i == 0 ? "" : std::string(1, path::kSeparator)) + path.names[i];
            auto next = lookUp(text);
            place = next ? next : keep(text, below(*place, path.names[i]));
        }
        return place;
    }
    Place below(const Place &place, const std::string &name)
    {
        Place found;
        for (const auto &[folder, listing] : place)
            for (std::string &match :
                 Listings::MatchesIn(listing.get(), folder, name, disk::Kind::Folder))
                found.push_back(listed(std::move(match)));
        return found;
    }
    std::shared_ptr<const Place> keep(const std::string &text, Place place)
    {
        const std::lock_guard lock(m_mutex);
        return m_places.try_emplace(text, std::make_shared<Place>(std::move(place))).first->second;
    }
    std::shared_ptr<const Place> lookUp(std::string_view text)
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_places.find(text);
        return found == m_places.end() ? nullptr : found->second;
    }
    /// Different spellings lead to the same folder of the disk.
    Listed listed(std::string folder)
    {
        {
            const std::lock_guard lock(m_mutex);
            if (const auto found = m_read.find(folder); found != m_read.end())
                return *found;
        }
        auto listing = m_listings.Get(folder);
        const std::lock_guard lock(m_mutex);
        return *m_read.try_emplace(std::move(folder), std::move(listing)).first;
    }

    Listings &m_listings;
    std::mutex m_mutex;
    std::unordered_map<std::string, std::shared_ptr<const Place>, Hash, std::equal_to<>> m_places;
    std::unordered_map<std::string, std::shared_ptr<const Listings::Folder>> m_read;
};

Snapshot::Snapshot(GameFiles &files)
    : m_places(std::make_unique<Places>(*files.m_listings))
{
}

Snapshot::~Snapshot() = default;

std::optional<std::string> Snapshot::FindFile(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    if (!steps || steps->endsInSeparator || steps->names.empty())
        return std::nullopt;
    const std::string &name = steps->names.back();
    for (const auto &[folder, listing] : *m_places->Find(*steps, steps->names.size() - 1)) {
        std::vector<std::string> matches =
            Places::Listings::MatchesIn(listing.get(), folder, name, disk::Kind::File);
        if (!matches.empty())
            return std::move(matches.front());
    }
    // What no listing shows may still be there, such as the short names of Windows.
    if (disk::KindOf(steps->text) == disk::Kind::File)
        return steps->text;
    return std::nullopt;
}

bool Snapshot::FolderExists(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    return steps && (!m_places->Find(*steps, steps->names.size())->empty() ||
                     disk::KindOf(steps->text) == disk::Kind::Folder);
}

std::vector<std::string> Snapshot::ListFiles(std::string_view folder, std::string_view pattern)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    if (!steps)
        return {};
    return Places::Listings::NamesIn(*m_places->Find(*steps, steps->names.size()), pattern,
                                     disk::Kind::File);
}

std::vector<std::string> Snapshot::ListFolders(std::string_view folder, std::string_view pattern)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    if (!steps)
        return {};
    return Places::Listings::NamesIn(*m_places->Find(*steps, steps->names.size()), pattern,
                                     disk::Kind::Folder);
}

} // namespace host
