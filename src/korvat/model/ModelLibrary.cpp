// SPDX-License-Identifier: MIT
#include "korvat/model/ModelLibrary.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "korvat/formats/Limits.h"
#include "korvat/formats/Mipmaps.h"
#include "korvat/formats/ReadShape.h"
#include "korvat/model/FindTexture.h"
#include "korvat/model/MakeModel.h"

#include <array>
#include <filesystem>
#include <new>
#include <utility>

namespace korvat {
namespace {

std::string sentence(const std::string &path, const ReadError &error, const char *unit)
{
    std::string text = path + ": " + error.text;
    if (error.where > 0)
        text += std::string(" (") + unit + ' ' + std::to_string(error.where) + ')';
    return text;
}

/// Returns one name for a file, independent of the spelling of the request. A disk that ignores
/// letter case returns paths as requested.
std::string placeOf(const std::filesystem::path &file)
{
    const std::string path = host::path::FromDisk(file);
    return host::disk::kIgnoresCase ? host::ToUpper(path) : path;
}

bool isInNightFolder(const std::string &place)
{
    const std::string_view folder = host::path::FolderWithSeparator(place);
    return !folder.empty() &&
           host::EqualsNoCase(host::path::FileName(folder.substr(0, folder.size() - 1)), "Night");
}

constexpr std::uint32_t kCheckerSide = 64, kCheckerField = 8;
constexpr std::array<std::uint8_t, 4> kCheckerDark = {0x20, 0x20, 0x20, 0xFF};
constexpr std::array<std::uint8_t, 4> kCheckerBright = {0xFF, 0x40, 0xFF, 0xFF};

} // namespace

ModelLibrary::ModelLibrary(host::GameFiles &files)
    : m_files(files)
{
}

TexturePtr ModelLibrary::Checker()
{
    static const TexturePtr checker = [] {
        auto texture = std::make_shared<Texture>();
        texture->width = texture->height = kCheckerSide;
        texture->levels = {{kCheckerSide, kCheckerSide, PixelFormat::Rgba8, 0,
                            LevelSize(PixelFormat::Rgba8, kCheckerSide, kCheckerSide)}};
        for (std::uint32_t y = 0; y < kCheckerSide; ++y)
            for (std::uint32_t x = 0; x < kCheckerSide; ++x) {
                const bool dark = (x / kCheckerField + y / kCheckerField) % 2 == 1;
                const std::array<std::uint8_t, 4> pixel = dark ? kCheckerDark : kCheckerBright;
                texture->data.insert(texture->data.end(), pixel.begin(), pixel.end());
            }
        return texture;
    }();
    return checker;
}

TexturePtr ModelLibrary::Magenta()
{
    static const TexturePtr magenta = [] {
        auto texture = std::make_shared<Texture>();
        texture->width = texture->height = 1;
        texture->levels = {{1, 1, PixelFormat::Rgba8, 0, LevelSize(PixelFormat::Rgba8, 1, 1)}};
        texture->data = {0xFF, 0x00, 0xFF, 0xFF};
        texture->isNight = true; // as bright in the dark
        return texture;
    }();
    return magenta;
}

LoadedModel ModelLibrary::LoadLevel(const std::string &path, int level)
{
    try {
        const auto found = m_files.FindFile(path);
        const std::string place = found ? placeOf(*found) : std::string();
        const Turn turn(*this, place);
        if (auto known = find(shelfOf(level), place))
            return {known, {}};
        const auto stamp = host::disk::StampOf(place);
        const ShapeFile file = ReadShape(m_files.ReadFile(path, kMaxShapeBytes));
        if (file.error)
            return {nullptr,
                    sentence(path, file.error, file.form == ShapeForm::Text ? "line" : "byte")};
        auto model = std::make_shared<const Model>(MakeModel(file.shape, level));
        if (stamp)
            keep(shelfOf(level), place, model, *stamp);
        return {model, {}};
    } catch (const std::bad_alloc &) {
        return {nullptr, path + ": there is not enough memory to load the shape"};
    } catch (const host::RuntimeError &error) {
        return {nullptr, error.what()};
    }
}

LoadedTexture ModelLibrary::LoadTexture(const std::string &shapeFolder,
                                        const std::string &texturePath, const std::string &name)
{
    try {
        const auto path = FindTexture(m_files, shapeFolder, texturePath, name);
        const auto found = path ? m_files.FindFile(*path) : std::nullopt;
        if (!found)
            return {Checker(), "Texture " + name + " is missing"};
        const std::string place = placeOf(*found);
        const Turn turn(*this, place);
        if (auto known = find(m_textures, place))
            return {known, {}};
        const auto stamp = host::disk::StampOf(place);
        TextureFile file = ReadTexture(m_files.ReadFile(*path, kMaxTextureBytes));
        if (file.error)
            return {Checker(), "Texture " + sentence(*path, file.error, "byte")};
        MakeSmallerLevels(file.texture);
        file.texture.isNight = isInNightFolder(place);
        auto texture = std::make_shared<const Texture>(std::move(file.texture));
        if (stamp)
            keep(m_textures, place, texture, *stamp);
        return {texture, {}};
    } catch (const std::bad_alloc &) {
        return {Checker(), "Texture " + name + ": there is not enough memory to load it"};
    } catch (const std::exception &error) {
        return {Checker(), "Texture " + name + ": " + error.what()};
    }
}

ModelLibrary::Shelf<Model> &ModelLibrary::shelfOf(int level)
{
    const std::lock_guard lock(m_mutex);
    return m_models[level]; // stays where it is
}

ModelLibrary::Turn::Turn(ModelLibrary &library, std::string place)
    : m_library(library)
    , m_place(std::move(place))
{
    std::unique_lock lock(m_library.m_mutex);
    m_library.m_read.wait(lock, [this] { return !m_library.m_reading.contains(m_place); });
    m_library.m_reading.insert(m_place);
}

ModelLibrary::Turn::~Turn()
{
    {
        const std::lock_guard lock(m_library.m_mutex);
        m_library.m_reading.erase(m_place);
    }
    m_library.m_read.notify_all();
}

template <typename Thing>
std::shared_ptr<const Thing> ModelLibrary::find(const Shelf<Thing> &shelf, const std::string &place)
{
    const std::lock_guard lock(m_mutex);
    const auto entry = shelf.find(place);
    if (entry == shelf.end() || host::disk::StampOf(place) != entry->second.stamp)
        return nullptr;
    return entry->second.thing.lock();
}

template <typename Thing>
void ModelLibrary::keep(Shelf<Thing> &shelf, const std::string &place,
                        const std::shared_ptr<const Thing> &thing, const host::disk::Stamp &stamp)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(shelf, [](const auto &entry) { return entry.second.thing.expired(); });
    shelf[place] = {stamp, thing};
}

} // namespace korvat
