// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/TextureChoice.h"
#include "korvat/model/ModelSource.h"
#include "korvat/model/Pose.h"
#include "korvat/model/Transform.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace korvat {
class Renderer;
}

/// One shape in a scene: the model of its file, which all shapes of that file share, its textures,
/// and its place. Texture indexes count from 0; one outside the list is error 9.
class ShapeModel
{
public:
    /// `source` must outlive the model.
    explicit ShapeModel(korvat::ModelSource &source);

    /// Attaches the model to the renderer that draws it; null detaches. The renderer must outlive
    /// the attachment.
    void SetRenderer(korvat::Renderer *renderer) { m_renderer = renderer; }
    /// Sets where to search textures that are not beside the shape, relative to its folder.
    void SetTexturePath(std::string path) { m_texturePath = std::move(path); }
    /// Sets which textures are shown instead of the shape's own, now and after the next
    /// LoadShapeFile; null for its own. One that cannot be read is not shown.
    void SetChoice(std::shared_ptr<korvat::TextureChoice> choice);

    /// Reads a shape and all its textures. Throws nothing, even if memory runs out: ErrorText holds
    /// the reason of a failure. After a failure the model is empty.
    void LoadShapeFile(const std::string &path);
    /// Returns the error of the last LoadShapeFile, "" if it succeeded.
    const std::string &ErrorText() const { return m_error; }
    /// Returns the visible defects after the last LoadShapeFile, one sentence each: missing or
    /// broken textures, unknown shaders.
    const std::vector<std::string> &Problems() const { return m_problems; }
    /// Returns the names of the textures that are missing or broken.
    const std::vector<std::string> &MissingTextures() const { return m_missing; }

    int TextureCount() const { return static_cast<int>(m_pictures.size()); }
    /// Returns the file name of a texture as the shape spells it.
    const std::string &TextureInfo(int index) const;
    /// Loads a texture by name from where this shape would find it; a missing one is a checker
    /// pattern.
    korvat::TexturePtr LoadTexture(const std::string &name);
    /// Puts a texture into a slot; null draws its parts without a texture.
    void SetTexture(int index, korvat::TexturePtr picture);
    korvat::TexturePtr GetTexture(int index) const;

    void SetWorldMatrix(const korvat::Transform &world) { m_world = world; }
    const korvat::Transform &WorldMatrix() const { return m_world; }

    /// Adds the model to the frame that its renderer has begun: `level` is the level of detail,
    /// counted from 1, the nearest; `distance` a distance for choosing one, less than 0 for none.
    void Render(int level, float distance);
    /// Sets how its parts are moved in the next frames; null for the rest pose. The pose must be
    /// one of the level that is rendered.
    void SetPose(korvat::PosePtr pose) { m_pose = std::move(pose); }
    /// Called after the canvas was restored. Does nothing: with the next frame the renderer uploads
    /// what the device has lost.
    void Restore() const {}

    /// Returns the model that was read; null without a shape.
    const korvat::Model *Loaded() const { return m_model.get(); }
    /// Returns a level of detail of that model, which is read when it is asked for first; the model
    /// itself if the level cannot be read.
    std::shared_ptr<const korvat::Model> AtLevel(int level);

private:
    void load(const std::string &path);
    void fail(std::string reason);
    void loadPictures();
    korvat::LoadedTexture loadPicture(const std::string &name);
    std::size_t slot(int index) const;

    korvat::ModelSource &m_source;
    korvat::Renderer *m_renderer = nullptr;
    std::shared_ptr<const korvat::Model> m_model;
    std::map<int, std::shared_ptr<const korvat::Model>> m_levels; ///< beyond the nearest
    korvat::PosePtr m_pose;
    std::shared_ptr<korvat::TextureChoice> m_choice;
    std::string m_file, m_folder, m_texturePath, m_error;
    std::vector<std::string> m_problems, m_missing;
    std::vector<korvat::TexturePtr> m_pictures;
    korvat::Transform m_world = korvat::Identity();
};
