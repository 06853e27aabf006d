// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

#include <memory>
#include <string>

namespace korvat {

using TexturePtr = std::shared_ptr<const Texture>;

/// A shape, or why there is none.
struct LoadedModel
{
    std::shared_ptr<const Model> model;
    std::string error; ///< "" when all is well
};

/// A picture to show, in any case; when the wanted one is missing or broken it is a checker
/// pattern and the problem says so.
struct LoadedTexture
{
    TexturePtr texture;
    std::string problem; ///< "" when all is well
};

/// Where shapes and pictures come from. Whoever asks twice for the same file while it is in use
/// gets the same object, so that a hundred identical wagons cost one. Safe to use from several
/// threads.
class ModelSource
{
public:
    virtual ~ModelSource() = default;

    virtual LoadedModel LoadModel(const std::string &path) = 0;
    /// The picture `name` for a shape in `shapeFolder` (which ends in a separator): beside the
    /// shape, else in `texturePath` as seen from there.
    virtual LoadedTexture LoadTexture(const std::string &shapeFolder,
                                      const std::string &texturePath, const std::string &name) = 0;
};

} // namespace korvat
