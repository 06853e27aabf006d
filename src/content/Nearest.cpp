// SPDX-License-Identifier: MIT
#include "content/Nearest.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <numeric>

namespace content {
namespace {

constexpr std::size_t kShown = 3;
/// Places to remember for one name, since names such as engine.sms are very common.
constexpr std::size_t kMaxPlaces = 64;
/// Names to compare in one folder; limits the time for huge folders.
constexpr std::size_t kMaxCompared = 2000;
constexpr std::size_t kMaxSimilar = 5000; ///< searches for similar names in one run

/// True for kinds where a file of the same name in another folder is a different file.
bool isOnlyBesideItsFile(Kind kind)
{
    return kind == Kind::Descriptor || kind == Kind::SeasonTexture || kind == Kind::Include;
}

/// Returns the extensions that authors confuse in references of a kind.
std::vector<const char *> extensionsOf(Kind kind)
{
    switch (kind) {
    case Kind::Texture:
    case Kind::CabImage:
    case Kind::RouteTexture:
        return {".ACE", ".DDS"};
    case Kind::ConsistVehicle:
    case Kind::ActivityVehicle:
        return {".ENG", ".WAG"};
    default:
        return {};
    }
}

std::string fileOf(const std::string &path)
{
    return host::ToUpper(host::path::FileName(path));
}

/// Returns the names, in upper case, that the file may have; its own first.
std::vector<std::string> namesOf(Kind kind, const std::string &path)
{
    std::vector<std::string> names = {fileOf(path)};
    const std::size_t dot = names.front().rfind('.');
    if (dot == std::string::npos)
        return names;
    for (const char *const extension : extensionsOf(kind)) {
        std::string other = names.front().substr(0, dot) + extension;
        if (other != names.front())
            names.push_back(std::move(other));
    }
    return names;
}

/// Returns the edit distance of two names, or limit + 1 if it is larger than `limit`.
std::size_t distance(const std::string &a, const std::string &b, std::size_t limit)
{
    if (std::max(a.size(), b.size()) - std::min(a.size(), b.size()) > limit)
        return limit + 1;
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0], least = row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (a[i - 1] != b[j - 1])});
            diagonal = above;
            least = std::min(least, row[j]);
        }
        if (least > limit)
            return limit + 1;
    }
    return row[b.size()];
}

/// Returns the stock folder that contains the file, in upper case; for other files, their folder.
std::string stockOf(const std::string &path, const std::string &trainset)
{
    const std::string below = host::ToUpper(path), root = host::ToUpper(trainset);
    if (!below.starts_with(root) || below.size() <= root.size() + 1)
        return host::ToUpper(FolderOfPath(path));
    return below.substr(0, below.find(host::path::kSeparator, root.size() + 1));
}

} // namespace

void Nearest::Want(Kind kind, const std::string &path)
{
    if (isOnlyBesideItsFile(kind))
        return;
    for (std::string &name : namesOf(kind, path))
        m_places.try_emplace(std::move(name));
}

void Nearest::addFolder(const std::string &folder)
{
    if (m_stopped && *m_stopped)
        return;
    for (const std::string &name : m_folders.ListFiles(folder, "*")) {
        const auto wanted = m_places.find(host::ToUpper(name));
        if (wanted != m_places.end() && wanted->second.size() < kMaxPlaces)
            wanted->second.push_back(host::path::Join(folder, name));
    }
}

void Nearest::addTree(const std::string &folder, int depth)
{
    addFolder(folder);
    if (depth == 0 || (m_stopped && *m_stopped))
        return;
    for (const std::string &name : m_folders.ListFolders(folder))
        addTree(host::path::Join(folder, name), depth - 1);
}

void Nearest::Search()
{
    constexpr int kStockDepth = 2; // TRAINSET, the stock folders, those in them
    if (m_places.empty())
        return;
    addTree(m_install.trainset, kStockDepth);
    addFolder(m_install.sound);
    addTree(m_install.consists, 1);
    addTree(m_install.eot, 1);
    for (const std::string &route : m_folders.ListFolders(m_install.routes))
        for (const char *const sub : {"SERVICES", "TRAFFIC"})
            addFolder(host::path::Join(host::path::Join(m_install.routes, route), sub));
}

std::vector<std::string> Nearest::similarNames(const std::string &path)
{
    constexpr std::size_t kLettersForOne = 5; // names this long may differ in one letter
    const auto known = m_similar.find(path);
    if (known != m_similar.end() || m_similar.size() >= kMaxSimilar)
        return known != m_similar.end() ? known->second : std::vector<std::string>();
    const std::string folder = FolderOfPath(path), wanted = fileOf(path);
    const std::size_t dot = wanted.rfind('.');
    const std::string extension = dot == std::string::npos ? "" : wanted.substr(dot);
    const std::size_t limit = std::min<std::size_t>(2, wanted.size() / kLettersForOne);
    std::vector<std::pair<std::size_t, std::string>> found;
    const std::vector<std::string> names = m_folders.ListFiles(folder, "*" + extension);
    for (std::size_t i = 0; i < std::min(names.size(), kMaxCompared); ++i)
        if (const auto steps = distance(wanted, host::ToUpper(names[i]), limit); steps <= limit)
            found.emplace_back(steps, host::path::Join(folder, names[i]));
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<std::string> &paths = m_similar[path];
    for (std::size_t i = 0; i < std::min(found.size(), kShown); ++i)
        paths.push_back(std::move(found[i].second));
    return paths;
}

Nearest::Candidates Nearest::For(Kind kind, const std::string &path)
{
    Candidates candidates;
    if (isOnlyBesideItsFile(kind)) {
        if (kind == Kind::Include)
            candidates.paths = similarNames(path);
        return candidates;
    }
    const std::string folder = host::ToUpper(FolderOfPath(path));
    const std::string stock = stockOf(path, m_install.trainset);
    std::vector<std::pair<int, std::string>> found;
    for (const std::string &name : namesOf(kind, path)) {
        const auto places = m_places.find(name);
        if (places == m_places.end())
            continue;
        for (const std::string &place : places->second) {
            const bool beside = host::ToUpper(FolderOfPath(place)) == folder;
            const bool isNear = stockOf(place, m_install.trainset) == stock;
            candidates.sameFolder = candidates.sameFolder || beside;
            found.emplace_back(beside ? 0 : isNear ? 1 : 2, place);
        }
    }
    candidates.isThere = !found.empty();
    if (found.empty()) {
        candidates.paths = similarNames(path);
        return candidates;
    }
    std::sort(found.begin(), found.end());
    for (std::size_t i = 0; i < std::min(found.size(), kShown); ++i)
        candidates.paths.push_back(std::move(found[i].second));
    return candidates;
}

} // namespace content
