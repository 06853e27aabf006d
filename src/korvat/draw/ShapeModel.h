// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/ModelSource.h"
#include "korvat/model/Transform.h"

#include <memory>
#include <string>
#include <vector>

namespace korvat {
class Renderer;
}

/// One shape as it stands in a scene: what was read from its file (shared with all others of that
/// file), the textures that it wears, and where it stands. Indices of textures count from 0; one
/// outside the list is error 9.
class ShapeModel
{
public:
    /// `source` must outlive the model.
    explicit ShapeModel(korvat::ModelSource &source);

    /// Attaches the model to the renderer that draws it; null detaches. The renderer must outlive
    /// the attachment.
    void SetRenderer(korvat::Renderer *renderer) { m_renderer = renderer; }
    /// Where textures are looked for that are not beside the shape, as seen from its folder.
    void SetTexturePath(std::string path) { m_texturePath = std::move(path); }

    /// Reads a shape and all its textures. Throws nothing: ErrorText holds what went wrong, also
    /// for lack of memory. A model that could not be read is empty.
    void LoadShapeFile(const std::string &path);
    /// What was wrong in the last LoadShapeFile, "" when it went well.
    const std::string &ErrorText() const { return m_error; }
    /// What does not look as it should after the last LoadShapeFile, a sentence each: textures that
    /// are missing or broken, shaders that are not known.
    const std::vector<std::string> &Problems() const { return m_problems; }

    int TextureCount() const { return static_cast<int>(m_pictures.size()); }
    /// The file name of a texture as the shape has it.
    const std::string &TextureInfo(int index) const;
    /// A texture by its name, as this shape would find it. What is missing is a checker pattern.
    korvat::TexturePtr LoadTexture(const std::string &name);
    /// Puts a texture into a slot; none makes the parts that wear it plain.
    void SetTexture(int index, korvat::TexturePtr picture);
    korvat::TexturePtr GetTexture(int index) const;

    void SetWorldMatrix(const korvat::Transform &world) { m_world = world; }
    const korvat::Transform &WorldMatrix() const { return m_world; }

    /// Adds the model to the frame that its renderer has begun: `level` is the level of detail,
    /// counted from 1 (this model holds the nearest), `distance` a distance for choosing one, less
    /// than 0 for none.
    void Render(int level, float distance) const;
    /// For after the canvas came back. The renderer gives the device new copies of what it lost by
    /// itself, with the next frame, so that a model has nothing left to do.
    void Restore() const {}

    /// Returns the model that was read; null without a shape.
    const korvat::Model *Loaded() const { return m_model.get(); }

private:
    void load(const std::string &path);
    void fail(std::string reason);
    std::size_t slot(int index) const;

    korvat::ModelSource &m_source;
    korvat::Renderer *m_renderer = nullptr;
    std::shared_ptr<const korvat::Model> m_model;
    std::string m_folder, m_texturePath, m_error;
    std::vector<std::string> m_problems;
    std::vector<korvat::TexturePtr> m_pictures;
    korvat::Transform m_world = korvat::Identity();
};
