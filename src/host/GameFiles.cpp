// SPDX-License-Identifier: MIT
#include "host/GameFiles.h"

#include "host/Disk.h"
#include "host/FileState.h"
#include "host/FilesUsed.h"
#include "host/Listings.h"
#include "host/OldContent.h"
#include "host/OutOfMemory.h"
#include "host/Path.h"
#include "host/Replace.h"
#include "host/RuntimeError.h"

#include <algorithm>

namespace host {
namespace {

[[noreturn]] void fail(const disk::Failure &failure, std::string_view path)
{
    throw RuntimeError(failure.number, std::string(path) + ": " + failure.reason);
}

/// Throws the error that explains why nothing below this path's folder can be reached.
[[noreturn]] void failWithoutFolder(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    if (!steps)
        throw RuntimeError(ErrorNumber::PathNotFound,
                           path.empty() ? "no file name is given"
                                        : "\"" + std::string(path) + "\" is not a path");
    fail(disk::WhyAbsent(steps->text), path);
}

} // namespace

GameFiles::GameFiles()
    : m_listings(std::make_unique<Listings>())
{
}

GameFiles::~GameFiles() = default;

std::vector<std::string> GameFiles::filesAt(const GamePath &path, std::vector<std::string> &folders)
{
    std::vector<std::string> files;
    if (path.names.empty() || path.endsInSeparator)
        return files;
    folders = m_listings->Folders(path.root, {path.names.begin(), path.names.end() - 1});
    for (const std::string &folder : folders)
        for (std::string &file : m_listings->Matches(folder, path.names.back(), disk::Kind::File))
            files.push_back(std::move(file));
    return files;
}

std::string GameFiles::existing(std::string_view path)
{
    if (const auto found = FindFile(path))
        return path::FromDisk(*found);
    const auto target = TargetOf(path);
    if (!target)
        failWithoutFolder(path);
    const disk::Failure why = disk::WhyAbsent(path::FromDisk(*target));
    if (why.number != ErrorNumber::PathNotFound)
        fail(why, path);
    throw RuntimeError(ErrorNumber::FileNotFound, std::string(path) + ": there is no such file");
}

std::optional<std::filesystem::path> GameFiles::FindFile(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    if (!steps || steps->endsInSeparator)
        return std::nullopt;
    std::optional<std::filesystem::path> found = find(*steps);
    FilesUsed::Note(*steps, found);
    return found;
}

std::optional<std::filesystem::path> GameFiles::find(const GamePath &path)
{
    // The exact spelling would be found first anyway; this costs one query instead of many.
    if (disk::KindOf(path.text) == disk::Kind::File)
        return path::ToDisk(path.text);
    if (disk::kIgnoresCase)
        return std::nullopt;
    std::vector<std::string> folders;
    const std::vector<std::string> files = filesAt(path, folders);
    if (files.empty())
        return std::nullopt;
    return path::ToDisk(files.front());
}

std::optional<std::filesystem::path> GameFiles::FindFolder(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    if (!steps)
        return std::nullopt;
    if (disk::KindOf(steps->text) == disk::Kind::Folder)
        return path::ToDisk(steps->text);
    const std::vector<std::string> folders = m_listings->Folders(steps->root, steps->names);
    if (folders.empty())
        return std::nullopt;
    return path::ToDisk(folders.front());
}

std::string GameFiles::spelledByListings(const GamePath &path)
{
    std::string spelled = path.root;
    for (std::size_t i = 0; i < path.names.size(); ++i) {
        const bool isLast = i + 1 == path.names.size();
        std::vector<std::string> found =
            m_listings->Matches(spelled, path.names[i], disk::Kind::Folder);
        if (found.empty() && isLast)
            found = m_listings->Matches(spelled, path.names[i], disk::Kind::File);
        // Listings contain neither short names nor the names in closed folders.
        spelled = found.empty() ? disk::Join(spelled, path.names[i]) : found.front();
    }
    return spelled;
}

std::optional<std::string> GameFiles::SpellingOf(std::string_view path)
{
    std::optional<std::filesystem::path> found = FindFile(path);
    if (!found)
        found = FindFolder(path);
    if (!found)
        return std::nullopt;
    if (disk::kIgnoresCase)
        return spelledByListings(*GamePath::Of(path));
    return path::ToText(path::FromDisk(*found));
}

std::string GameFiles::TextOf(std::string_view bytes)
{
    std::string text = path::ToText(bytes);
    if (text == bytes)
        return text;
    const auto file = FindFile(bytes), folder = FindFolder(bytes);
    const bool isOther = file ? FindFile(text) != file : folder && FindFolder(text) != folder;
    return isOther ? std::string(bytes) : text;
}

std::optional<std::filesystem::path> GameFiles::TargetOf(std::string_view path)
{
    const std::optional<GamePath> steps = GamePath::Of(path);
    if (!steps)
        return std::nullopt;
    std::vector<std::string> folders;
    const std::vector<std::string> files = filesAt(*steps, folders);
    if (!files.empty())
        return path::ToDisk(files.front());
    if (folders.empty())
        return std::nullopt;
    return path::ToDisk(disk::Join(folders.front(), steps->names.back()));
}

std::vector<std::string> GameFiles::list(std::string_view folder, std::string_view pattern,
                                         bool wantFolders)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    if (!steps)
        return {};
    std::vector<Listings::Listed> listed;
    for (const std::string &path : m_listings->Folders(steps->root, steps->names))
        listed.emplace_back(path, m_listings->Get(path));
    return Listings::NamesIn(listed, pattern, wantFolders ? disk::Kind::Folder : disk::Kind::File);
}

std::vector<std::string> GameFiles::ListFiles(std::string_view folder, std::string_view pattern)
{
    return list(folder, pattern, false);
}

std::vector<std::string> GameFiles::ListFolders(std::string_view folder, std::string_view pattern)
{
    return list(folder, pattern, true);
}

bool GameFiles::IsClosed(std::string_view folder)
{
    const std::optional<GamePath> steps = GamePath::Of(folder);
    if (!steps)
        return false;
    const std::vector<std::string> paths = m_listings->Folders(steps->root, steps->names);
    return std::any_of(paths.begin(), paths.end(), [this](const std::string &path) {
        return !m_listings->Get(path) && disk::KindOf(path) == disk::Kind::Folder;
    });
}

std::string GameFiles::ReadFile(std::string_view path, std::uint64_t limit)
{
    const std::string file = existing(path);
    return NamingIfOutOfMemory(path, [&] {
        std::string bytes;
        if (const auto failure = disk::Read(file, limit, bytes))
            fail(*failure, path);
        return bytes;
    });
}

void GameFiles::WriteFile(std::string_view path, std::string_view bytes)
{
    write(path, bytes, {});
}

void GameFiles::WriteFile(std::string_view path, std::string_view bytes, const FileState &before)
{
    bool changed = false;
    try {
        write(path, bytes, [&] {
            changed = before.HasChanged(*this, std::string(path));
            return !changed;
        });
    } catch (const RuntimeError &) {
        if (changed)
            throw FileChanged(path);
        throw;
    }
}

void GameFiles::write(std::string_view path, std::string_view bytes,
                      const std::function<bool()> &mayReplace)
{
    const std::optional<std::filesystem::path> target = TargetOf(path);
    if (!target)
        failWithoutFolder(path);
    const auto failure = disk::Replace(path::FromDisk(*target), bytes, mayReplace);
    m_listings->Forget(path::FromDisk(target->parent_path()));
    if (failure)
        fail(*failure, path);
}

void GameFiles::RemoveFile(std::string_view path)
{
    const std::string file = existing(path);
    const auto failure = disk::Remove(file);
    m_listings->Forget(path::FromDisk(path::ToDisk(file).parent_path()));
    if (failure)
        fail(*failure, path);
}

OldContent GameFiles::MoveAside(std::string_view path)
{
    const std::string file = existing(path);
    m_listings->Forget(path::FromDisk(path::ToDisk(file).parent_path()));
    return OldContent(file);
}

void GameFiles::PutBack(OldContent &content)
{
    m_listings->Forget(path::FromDisk(path::ToDisk(content.File()).parent_path()));
    content.PutBack();
}

void GameFiles::Refresh()
{
    m_listings->Clear();
}

} // namespace host
