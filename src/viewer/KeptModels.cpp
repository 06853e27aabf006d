// SPDX-License-Identifier: MIT
#include "viewer/KeptModels.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "korvat/model/FindTexture.h"

#include <algorithm>
#include <filesystem>
#include <utility>

using korvat::LoadedModel;
using korvat::LoadedTexture;

namespace viewer {

FileOnDisk FileOnDisk::Of(host::GameFiles &files, const std::string &path)
{
    const auto found = files.FindFile(path);
    if (!found)
        return {};
    FileOnDisk file;
    file.place = host::path::FromDisk(*found);
    file.stamp = host::disk::StampOf(file.place);
    std::error_code failure; // the size is then the largest number
    file.size = std::filesystem::file_size(*found, failure);
    return file;
}

KeptModels::KeptModels(korvat::ModelSource &source, host::GameFiles &files)
    : m_source(source)
    , m_files(files)
{
}

std::string KeptModels::KeyOf(const std::string &shapeFolder, const std::string &texture)
{
    return shapeFolder + '|' + texture;
}

template <typename Entry>
std::optional<Entry> KeptModels::current(const std::map<std::string, Entry> &entries,
                                         const std::string &key)
{
    const std::lock_guard lock(m_mutex);
    const auto entry = entries.find(key);
    if (entry == entries.end() || !entry->second.isCurrent)
        return std::nullopt;
    return entry->second;
}

template <typename Entry, typename State>
void KeptModels::watch(std::map<std::string, Entry> &entries, const std::string &key, State state)
{
    {
        const std::lock_guard lock(m_mutex);
        if (entries.contains(key))
            return; // TakeChanges keeps it up to date
    }
    FileOnDisk file = state();
    const std::lock_guard lock(m_mutex);
    entries[key].file = std::move(file);
}

LoadedModel KeptModels::LoadLevel(const std::string &path, int level)
{
    if (auto known = current(m_shapes, KeyOf(path)); known && known->models.contains(level))
        return {known->models[level], {}};
    // Before the file is read, so that a change during the reading is noticed.
    watch(m_shapes, KeyOf(path), [&] { return FileOnDisk::Of(m_files, path); });
    LoadedModel loaded = level == 1 ? m_source.LoadModel(path) : m_source.LoadLevel(path, level);
    const std::lock_guard lock(m_mutex);
    Shape &shape = m_shapes[KeyOf(path)];
    shape.isCurrent = loaded.model != nullptr;
    auto &model = shape.models[level];
    if (loaded.model) {
        model = loaded.model;
    } else if (model) {
        m_problems.push_back(std::exchange(loaded.error, {}));
        loaded.model = model;
    }
    return loaded;
}

LoadedTexture KeptModels::LoadTexture(const std::string &shapeFolder,
                                      const std::string &texturePath, const std::string &name)
{
    const std::string key = KeyOf(shapeFolder, name);
    if (auto known = current(m_pictures, key); known && known->texturePath == texturePath)
        return {known->texture, {}};
    watch(m_pictures, key, [&] { return stateOf({shapeFolder, texturePath, name, {}, {}}); });
    LoadedTexture loaded = m_source.LoadTexture(shapeFolder, texturePath, name);
    const std::lock_guard lock(m_mutex);
    Picture &picture = m_pictures[key];
    picture.folder = shapeFolder;
    picture.texturePath = texturePath;
    picture.name = name;
    picture.isCurrent = loaded.problem.empty();
    if (loaded.problem.empty()) {
        picture.texture = loaded.texture;
    } else if (picture.texture) {
        m_problems.push_back(loaded.problem);
        loaded.texture = picture.texture;
    }
    return loaded;
}

FileOnDisk KeptModels::stateOf(const Picture &picture)
{
    const auto path =
        korvat::FindTexture(m_files, picture.folder, picture.texturePath, picture.name);
    return path ? FileOnDisk::Of(m_files, *path) : FileOnDisk();
}

std::set<std::string> KeptModels::TakeChanges()
{
    const std::lock_guard lock(m_mutex);
    std::set<std::string> changed;
    const auto compare = [&changed](const std::string &key, auto &entry, FileOnDisk now) {
        if (entry.file != now) {
            changed.insert(key);
            entry.isCurrent = false;
        }
        entry.file = std::move(now);
    };
    for (auto &[key, shape] : m_shapes)
        compare(key, shape, FileOnDisk::Of(m_files, key));
    for (auto &[key, picture] : m_pictures)
        compare(key, picture, stateOf(picture));
    return changed;
}

std::vector<std::string> KeptModels::TakeProblems()
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::string> problems;
    for (std::string &problem : std::exchange(m_problems, {}))
        if (std::find(problems.begin(), problems.end(), problem) == problems.end())
            problems.push_back(std::move(problem));
    return problems;
}

void KeptModels::AddPlaces(std::set<std::string> &places)
{
    const std::lock_guard lock(m_mutex);
    const auto addFolder = [&](const std::string &folder) {
        if (const auto found = m_files.FindFolder(folder))
            places.insert(host::path::FromDisk(*found));
    };
    const auto addFile = [&](const FileOnDisk &file) {
        if (!file.place.empty())
            places.insert(file.place);
    };
    for (const auto &[key, shape] : m_shapes) {
        addFile(shape.file);
        addFolder(std::string(host::path::FolderWithSeparator(key)));
    }
    for (const auto &[key, picture] : m_pictures) {
        addFile(picture.file);
        addFolder(host::path::Join(picture.folder, picture.texturePath));
    }
}

void KeptModels::Clear()
{
    const std::lock_guard lock(m_mutex);
    m_shapes.clear();
    m_pictures.clear();
    m_problems.clear();
}

} // namespace viewer
