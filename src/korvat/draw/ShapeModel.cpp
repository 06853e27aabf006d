// SPDX-License-Identifier: MIT
#include "korvat/draw/ShapeModel.h"

#include "host/Path.h"
#include "host/RuntimeError.h"
#include "korvat/draw/Renderer.h"

#include <algorithm>
#include <new>
#include <utility>

using korvat::TexturePtr;

ShapeModel::ShapeModel(korvat::ModelSource &source)
    : m_source(source)
{
}

void ShapeModel::LoadShapeFile(const std::string &path)
{
    try {
        load(path);
    } catch (const std::bad_alloc &) {
        fail(path + ": there is not enough memory to load the shape");
    } catch (const std::exception &error) {
        fail(path + ": " + error.what());
    }
}

void ShapeModel::fail(std::string reason)
{
    m_model = nullptr;
    m_problems.clear();
    m_missing.clear();
    m_pictures.clear();
    m_error = std::move(reason);
}

void ShapeModel::load(const std::string &path)
{
    m_file = path;
    m_folder = host::path::FolderWithSeparator(path);
    m_levels.clear();
    m_pose = nullptr;
    korvat::LoadedModel loaded = m_source.LoadModel(path);
    m_error = std::move(loaded.error);
    m_model = m_error.empty() ? std::move(loaded.model) : nullptr;
    m_pictures.clear();
    loadPictures();
}

/// Loads the textures of all slots, and leaves those empty that SetTexture has emptied.
void ShapeModel::loadPictures()
{
    m_problems.clear();
    m_missing.clear();
    if (!m_model)
        return;
    const std::vector<TexturePtr> before = std::exchange(m_pictures, {});
    for (const std::string &name : m_model->textures) {
        korvat::LoadedTexture picture = loadPicture(name);
        if (!picture.problem.empty()) {
            m_problems.push_back(std::move(picture.problem));
            m_missing.push_back(name);
        }
        const bool isEmpty = m_pictures.size() < before.size() && !before[m_pictures.size()];
        m_pictures.push_back(isEmpty ? nullptr : std::move(picture.texture));
    }
    for (const std::string &note : m_model->notes)
        m_problems.push_back(std::string(host::path::FileName(m_file)) + ": " + note);
}

korvat::LoadedTexture ShapeModel::loadPicture(const std::string &name)
{
    if (const auto path = m_choice ? m_choice->Instead(m_file, name) : std::nullopt) {
        korvat::LoadedTexture picture =
            m_source.LoadTexture(std::string(host::path::FolderWithSeparator(*path)), {},
                                 std::string(host::path::FileName(*path)));
        if (picture.problem.empty())
            return picture;
    }
    return m_source.LoadTexture(m_folder, m_texturePath, name);
}

void ShapeModel::SetChoice(std::shared_ptr<korvat::TextureChoice> choice)
{
    if (m_choice == choice)
        return;
    m_choice = std::move(choice);
    loadPictures();
}

const std::string &ShapeModel::TextureInfo(int index) const
{
    return m_model->textures[slot(index)];
}

TexturePtr ShapeModel::LoadTexture(const std::string &name)
{
    return loadPicture(name).texture;
}

void ShapeModel::SetTexture(int index, TexturePtr picture)
{
    m_pictures[slot(index)] = std::move(picture);
}

TexturePtr ShapeModel::GetTexture(int index) const
{
    return m_pictures[slot(index)];
}

std::size_t ShapeModel::slot(int index) const
{
    if (index < 0 || index >= TextureCount())
        throw host::RuntimeError(host::ErrorNumber::SubscriptOutOfRange,
                                 "texture " + std::to_string(index) + " of " +
                                     std::to_string(TextureCount()));
    return static_cast<std::size_t>(index);
}

std::shared_ptr<const korvat::Model> ShapeModel::AtLevel(int level)
{
    if (level <= 1 || !m_model)
        return m_model;
    // Levels beyond the last one are the same.
    level = std::min(level, std::max(1, static_cast<int>(m_model->levels.size())));
    if (level == 1)
        return m_model;
    std::shared_ptr<const korvat::Model> &model = m_levels[level];
    if (!model) {
        try {
            model = m_source.LoadLevel(m_file, level).model;
        } catch (const std::exception &) {
            // The shape was read before; without this level, the nearest one is shown.
        }
    }
    return model ? model : model = m_model;
}

void ShapeModel::Render(int level, float)
{
    if (m_renderer)
        m_renderer->Add(AtLevel(level), m_world, m_pictures, korvat::Renderer::Role::Object,
                        m_pose);
}
