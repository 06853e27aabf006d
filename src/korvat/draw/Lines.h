// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Model.h"

#include <memory>
#include <unordered_map>

namespace korvat {

/// What a model of lines shows of another model.
enum class LineKind : std::uint8_t
{
    Edges,  ///< the edges of its triangles, each once
    Normals ///< a short line along the normal of each vertex
};

/// Returns the lines of a model in one colour, whatever the light.
std::shared_ptr<const Model> MakeLines(const Model &model, LineKind kind, const Tint &colour);

/// Returns the edges of a cube of one metre around the origin.
std::shared_ptr<const Model> MakeBoxLines(const Tint &colour);

/// The lines of the models of a scene. Makes those of each model once, and keeps them as long as
/// the model is in use.
class LineModels
{
public:
    LineModels(LineKind kind, const Tint &colour)
        : m_kind(kind)
        , m_colour(colour)
    {
    }

    std::shared_ptr<const Model> Of(const std::shared_ptr<const Model> &model);
    /// Forgets the lines of models that are no longer in use.
    void Tidy();

private:
    struct Kept
    {
        std::weak_ptr<const Model> model;
        std::shared_ptr<const Model> lines;
    };

    LineKind m_kind;
    Tint m_colour;
    std::unordered_map<const Model *, Kept> m_kept;
};

} // namespace korvat
