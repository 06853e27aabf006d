// SPDX-License-Identifier: MIT
#include "host/Snapshot.h"

#include "host/Digest.h"
#include "host/FilesUsed.h"
#include "host/Listings.h"
#include "host/Packed.h"
#include "host/Path.h"
#include "host/Recording.h"
#include "host/RuntimeError.h"
#include "host/SharedTable.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <unordered_map>

namespace host {

/// GameFiles::Listings is private to GameFiles and Snapshot.
struct Snapshot::Listing
{
    using Listings = GameFiles::Listings;
};

/// The folders of the disk that count as one, with their listings.
struct Place
{
    std::string path;
    const Place *parent = nullptr;
    std::vector<Snapshot::Listing::Listings::Listed> folders;
};

namespace {

void noteFolder(const Place *place)
{
    if (Recording *const recording = Recording::Current())
        recording->AddFolder(place);
}

void noteNames(const Place *place)
{
    if (Recording *const recording = Recording::Current())
        recording->AddNames(place);
}

/// Notes something that depends on more than the names in folders.
void noteUnlisted()
{
    if (Recording *const recording = Recording::Current())
        recording->Spoil();
}

} // namespace

/// The folders of the disk that game paths lead to. Entries are created once and then only read.
class Snapshot::Places
{
public:
    using Listings = GameFiles::Listings;
    using Listed = Listings::Listed;

    explicit Places(Listings &listings)
        : m_listings(listings)
    {
    }

    /// Returns the place of the first `depth` names of a path; an empty one if there is none.
    const Place *Find(const GamePath &path, std::size_t depth)
    {
        std::size_t length = path.root.size();
        for (std::size_t i = 0; i < depth; ++i)
            length += path.names[i].size() + (i == 0 ? 0 : 1);
        const auto known = m_places.Find(std::string_view(path.text).substr(0, length));
        return known ? *known : walk(path, depth);
    }

    /// True if a name can only mean an entry of its folder.
    static bool IsPlain(std::string_view name)
    {
        return !name.empty() && name != "." && name != ".." && name.find('\0') == name.npos;
    }
    /// Returns the place of a folder, given with its separator, in which a file was looked for
    /// already; else null.
    const Place *Known(std::string_view folder) const
    {
        return m_aliases.Find(folder).value_or(nullptr);
    }

    /// A path's last name and the place to search for it. A path that cannot be a file's has none.
    /// The path must outlive it.
    struct Leaf
    {
        const Place *place = nullptr;
        std::string_view plain; ///< in the path
        std::string resolved;   ///< if the path ends in "." or ".."

        std::string_view Name() const { return resolved.empty() ? plain : resolved; }
    };
    std::optional<Leaf> LeafOf(std::string_view path)
    {
        const std::string_view folder = path::FolderWithSeparator(path);
        const std::string_view name = path.substr(folder.size());
        const bool plain = IsPlain(name);
        if (plain)
            if (const Place *known = Known(folder))
                return Leaf{known, name, {}};
        const std::optional<GamePath> steps = GamePath::Of(path);
        if (!steps || steps->endsInSeparator || steps->names.empty())
            return std::nullopt;
        Leaf leaf{Find(*steps, steps->names.size() - 1), {}, steps->names.back()};
        if (plain && !folder.empty() && !leaf.place->folders.empty() &&
            m_aliases.Size() < kMaxAliases)
            m_aliases.Add(folder, leaf.place);
        return leaf;
    }

    /// The listing's entry of the requested file: the exact spelling first, then in listing
    /// order. Without an entry if no listing shows it.
    struct Hit
    {
        const std::string *folder = nullptr;
        const Listings::Entry *entry = nullptr;

        explicit operator bool() const { return entry != nullptr; }
        std::string Path() const { return disk::Join(*folder, entry->DiskName()); }
    };
    static Hit FileOf(const Leaf &leaf)
    {
        Hit hit;
        for (const auto &[folder, listing] : leaf.place->folders) {
            if (!listing)
                return {}; // the file may still be in it
            for (auto [entry, end] = Listings::Named(*listing, leaf.Name()); entry != end; ++entry)
                if ((!hit || entry->DiskName() == leaf.Name()) &&
                    Listings::KindOf(folder, *entry) == disk::Kind::File)
                    hit = {&folder, &*entry};
            if (hit)
                break;
        }
        return hit;
    }

private:
    /// Limit of remembered folder spellings; hostile files may contain more.
    static constexpr std::size_t kMaxAliases = 200000;

    /// Follows the path from the root as far as the folders exist.
    const Place *walk(const GamePath &path, std::size_t depth)
    {
        std::string text = path.root;
        const auto root = m_places.Find(text);
        const Place *place = root ? *root : keep({text, nullptr, {listed(path.root)}});
        for (std::size_t i = 0; i < depth && !place->folders.empty(); ++i) {
            text += (i == 0 ? "" : std::string(1, path::kSeparator)) + path.names[i];
            const auto next = m_places.Find(text);
            place = next ? *next : keep({text, place, below(*place, path.names[i])});
        }
        return place;
    }
    std::vector<Listed> below(const Place &place, const std::string &name)
    {
        std::vector<Listed> found;
        for (const auto &[folder, listing] : place.folders)
            for (std::string &match :
                 Listings::MatchesIn(listing.get(), folder, name, disk::Kind::Folder))
                found.push_back(listed(std::move(match)));
        return found;
    }
    const Place *keep(Place place)
    {
        const std::lock_guard lock(m_mutex);
        if (const auto known = m_places.Find(place.path))
            return *known;
        const Place &made = m_made.emplace_back(std::move(place));
        return m_places.Add(made.path, &made);
    }
    /// Returns a folder with its listing. Different spellings lead to the same folder.
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
    SharedTable<const Place *> m_places;  ///< by the text of a resolved path
    SharedTable<const Place *> m_aliases; ///< by the text of folders as given, with their separator
    std::mutex m_mutex;                   ///< guards the following
    std::deque<Place> m_made;             ///< all places; their addresses do not change
    std::unordered_map<std::string, std::shared_ptr<const Listings::Folder>> m_read;
};

Snapshot::Snapshot(GameFiles &files)
    : m_files(files)
    , m_places(std::make_unique<Places>(*files.m_listings))
{
}

Snapshot::~Snapshot() = default;

namespace {

bool canList(const Place &place)
{
    return std::all_of(place.folders.begin(), place.folders.end(),
                       [](const auto &listed) { return listed.second; });
}

/// True if the listings of a place show every file that the name can mean.
bool listsAll(const Place &place)
{
    return !disk::kIgnoresCase && !place.folders.empty() && canList(place);
}

/// Reads a file that exists; the error names the path that consists of two parts.
void read(const std::string &file, std::string_view folder, std::string_view name,
          std::string &bytes)
{
    if (const auto failure = Snapshot::ReadRecorded(file, bytes))
        throw RuntimeError(failure->number,
                           std::string(folder).append(name) + ": " + failure->reason);
}

/// A file that no listing shows may still exist: in a folder that cannot be listed, or under a
/// Windows short name.
std::optional<std::string> unlisted(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    if (!steps || disk::KindOf(steps->text) != disk::Kind::File)
        return std::nullopt;
    noteUnlisted();
    return steps->text;
}

} // namespace

std::optional<std::string> Snapshot::FindFile(std::string_view path)
{
    if (FilesUsed::IsRecording())
        m_files.FindFile(path);
    const auto leaf = m_places->LeafOf(path);
    if (!leaf)
        return std::nullopt;
    noteNames(leaf->place);
    if (const Places::Hit hit = Places::FileOf(*leaf))
        return hit.Path();
    for (const auto &[folder, listing] : leaf->place->folders) {
        std::vector<std::string> matches =
            Places::Listings::MatchesIn(listing.get(), folder, leaf->Name(), disk::Kind::File);
        if (!matches.empty())
            return std::move(matches.front());
    }
    return listsAll(*leaf->place) ? std::nullopt : unlisted(path);
}

bool Snapshot::FileExists(std::string_view path)
{
    return IdentityOf(path) || FindFile(path);
}

Snapshot::Folder::Folder(Snapshot &snapshot, std::string folder)
    : m_snapshot(snapshot)
    , m_path(std::move(folder))
{
}

const Place *Snapshot::Folder::placeOf(std::string_view name)
{
    if (!Places::IsPlain(name) || std::any_of(name.begin(), name.end(), IsSeparator) ||
        FilesUsed::IsRecording())
        return nullptr;
    if (!m_place)
        m_place = m_snapshot.m_places->Known(m_path);
    return m_place;
}

bool Snapshot::Folder::FileExists(std::string_view name)
{
    const Place *const place = placeOf(name);
    if (place && Places::FileOf({place, name, {}})) {
        noteNames(place);
        return true;
    }
    return m_snapshot.FileExists(m_path + std::string(name));
}

bool Snapshot::Folder::ReadFileInto(std::string &bytes, std::string_view name)
{
    const Place *const place = placeOf(name);
    const Places::Hit hit = place ? Places::FileOf({place, name, {}}) : Places::Hit();
    if (!hit)
        return m_snapshot.ReadFileInto(bytes, m_path + std::string(name));
    noteNames(place);
    read(hit.Path(), m_path, name, bytes);
    return true;
}

const void *Snapshot::IdentityOf(std::string_view path)
{
    if (FilesUsed::IsRecording())
        m_files.FindFile(path);
    const auto leaf = m_places->LeafOf(path);
    if (!leaf)
        return nullptr;
    noteNames(leaf->place);
    return Places::FileOf(*leaf).entry;
}

std::string Snapshot::ReadFile(std::string_view path)
{
    std::string bytes;
    if (!ReadFileInto(bytes, path))
        return m_files.ReadFile(path); // throws the reason
    return bytes;
}

std::optional<std::string> Snapshot::TryReadFile(std::string_view path)
{
    std::string bytes;
    return ReadFileInto(bytes, path) ? std::optional(std::move(bytes)) : std::nullopt;
}

bool Snapshot::ReadFileInto(std::string &bytes, std::string_view path)
{
    const std::optional<std::string> file = FindFile(path);
    if (!file)
        return false;
    read(*file, path, {}, bytes);
    return true;
}

std::optional<disk::Failure> Snapshot::ReadRecorded(const std::string &file, std::string &bytes)
{
    disk::Stamp stamp;
    auto failure = disk::Read(file, GameFiles::kReadLimit, bytes, &stamp);
    if (Recording *const recording = Recording::Current()) {
        recording->AddFile(file, stamp, bytes.size());
        if (failure)
            recording->Spoil();
    }
    return failure;
}

bool Snapshot::FolderExists(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    if (!steps)
        return false;
    const Place *const place = m_places->Find(*steps, steps->names.size());
    noteFolder(place);
    if (!place->folders.empty())
        return true;
    const bool isUnlisted = disk::KindOf(steps->text) == disk::Kind::Folder;
    if (isUnlisted)
        noteUnlisted();
    return isUnlisted;
}

bool Snapshot::IsClosed(std::string_view folder)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    if (!steps)
        return false;
    const Place *const place = m_places->Find(*steps, steps->names.size());
    noteNames(place);
    return !canList(*place);
}

std::vector<std::string> Snapshot::ListFiles(std::string_view folder, std::string_view pattern)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    if (!steps)
        return {};
    const Place *const place = m_places->Find(*steps, steps->names.size());
    noteNames(place);
    return Places::Listings::NamesIn(place->folders, pattern, disk::Kind::File);
}

std::vector<std::string> Snapshot::ListFolders(std::string_view folder, std::string_view pattern)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    if (!steps)
        return {};
    const Place *const place = m_places->Find(*steps, steps->names.size());
    noteNames(place);
    return Places::Listings::NamesIn(place->folders, pattern, disk::Kind::Folder);
}

const Place *Snapshot::PlaceOf(std::string_view folder)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    return steps ? m_places->Find(*steps, steps->names.size()) : nullptr;
}

PlaceState Snapshot::StateOf(const Place &place)
{
    PlaceState state;
    state.path = place.path;
    state.parent = place.parent;
    state.isListed = canList(place);
    Packer names;
    for (const auto &[folder, listing] : place.folders) {
        PlaceState::Folder &added = state.folders.emplace_back();
        added.path = folder;
        names.Text({});
        if (!listing)
            continue;
        added.mark = FileMark(listing->stamp, 0);
        added.isMarked = listing->marked;
        for (const Places::Listings::Entry &entry : listing->entries) {
            state.hasLinks = state.hasLinks || entry.kind == disk::Kind::Link;
            names.Text(entry.DiskName());
            names.Number(static_cast<std::uint64_t>(Places::Listings::KindOf(folder, entry)));
        }
    }
    state.names = Digest(names.Bytes());
    return state;
}

} // namespace host
