// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

#include <memory>
#include <string>

namespace korvat {

using TexturePtr = std::shared_ptr<const Texture>;

/// A model, or the reason why there is none.
struct LoadedModel
{
    std::shared_ptr<const Model> model;
    std::string error; ///< "" on success
};

/// A texture to show, never null. If the requested one is missing or broken, this is a checker
/// pattern and `problem` gives the reason.
struct LoadedTexture
{
    TexturePtr texture;
    std::string problem; ///< "" on success
};

/// A source of models and textures. While a file is in use, every request for it returns the same
/// object, so that a hundred identical wagons cost as much as one. Thread-safe.
class ModelSource
{
public:
    virtual ~ModelSource() = default;

    virtual LoadedModel LoadModel(const std::string &path) = 0;
    /// Like LoadModel, but returns a level of detail, counted from 1, the nearest.
    virtual LoadedModel LoadLevel(const std::string &path, int level) = 0;
    /// Loads the texture `name` for a shape in `shapeFolder`, which ends in a separator. Searches
    /// that folder, then `texturePath` relative to it.
    virtual LoadedTexture LoadTexture(const std::string &shapeFolder,
                                      const std::string &texturePath, const std::string &name) = 0;
};

} // namespace korvat
