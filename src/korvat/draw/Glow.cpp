// SPDX-License-Identifier: MIT
#include "korvat/draw/Glow.h"

#include "korvat/draw/Renderer.h"
#include "korvat/draw/Sky.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace korvat {
namespace {

constexpr unsigned kSide = 64;          ///< pixels
constexpr float kCore = 0.35f;          ///< radius of the white middle, as a share of the whole
constexpr float kBehind = 0.06f;        ///< strength as seen from behind
constexpr float kSteps = 8;             ///< different strengths, so that few models are needed
constexpr float kTowards = 0.6f;        ///< radii towards the camera, out of the lamp's own surface
constexpr float kNearest = 0.5f;        ///< metres that a glow keeps from the camera
constexpr std::size_t kMostModels = 64; ///< colours that are kept

float eased(float t)
{
    t = std::clamp(t, 0.0f, 1.0f);
    return t * t * (3 - 2 * t);
}

/// Both the colour and the alpha fade, so that the limit below which nothing is drawn leaves no
/// edge.
const TexturePtr &picture()
{
    static const TexturePtr painted = PaintTexture(kSide, 8, [](unsigned x, unsigned y) {
        const auto away = [](unsigned at) {
            return (static_cast<float>(at) + 0.5f) * 2 / kSide - 1;
        };
        const float strength = eased(1 - std::hypot(away(x), away(y)));
        return Tint{strength, strength, strength, strength};
    });
    return painted;
}

void addSquare(Model &model, float half, const Tint &colour)
{
    const auto first = static_cast<std::uint32_t>(model.mesh.vertices.size());
    const Vec3 normal{0, 0, -1};
    model.mesh.vertices.insert(model.mesh.vertices.end(), {{{-half, half, 0}, normal, {0, 0}},
                                                           {{half, half, 0}, normal, {1, 0}},
                                                           {{half, -half, 0}, normal, {1, 1}},
                                                           {{-half, -half, 0}, normal, {0, 1}}});
    Part part;
    part.firstIndex = static_cast<std::uint32_t>(model.mesh.indices.size());
    for (const std::uint32_t corner : {0u, 1u, 2u, 0u, 2u, 3u})
        model.mesh.indices.push_back(first + corner);
    part.indexCount = 6;
    part.slot = 0;
    part.surface.finish = Finish::FullBright;
    part.surface.blending = Blending::Add;
    part.surface.addressing = AddressMode::Clamp;
    part.surface.colour = colour;
    model.parts.push_back(part);
}

} // namespace

/// Returns a square that faces a camera along Z, with a whiter one in its middle.
std::shared_ptr<const Model> Glows::modelOf(const Tint &colour)
{
    if (m_models.size() > kMostModels)
        m_models.clear();
    auto &known = m_models[{colour.r, colour.g, colour.b, colour.a}];
    if (known)
        return known;
    const auto whiter = [](float part) { return 0.5f + 0.5f * part; };
    auto model = std::make_shared<Model>();
    addSquare(*model, 1, colour);
    addSquare(*model, kCore, {whiter(colour.r), whiter(colour.g), whiter(colour.b), colour.a});
    MeasureBounds(*model);
    return known = model;
}

void Glows::Add(Renderer &renderer, const Glow &glow)
{
    const Vec3 away = renderer.Eye() - glow.at;
    const float distance = Length(away);
    if (distance < kNearest)
        return;
    const Vec3 towards = away * (1 / distance);
    const float facing = kBehind + (1 - kBehind) * eased((Dot(towards, glow.along) + 0.3f) / 0.6f);
    Tint colour = glow.colour;
    colour.a = std::ceil(colour.a * facing * kSteps) / kSteps;
    const float shift = std::min(glow.radius * kTowards, distance - kNearest);
    const float scale = glow.radius * (distance - shift) / distance; // it still looks as large
    Transform world = Identity();
    const Transform view = LookAt({}, towards * -1);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            world.At(row, column) = view.At(column, row) * scale;
    const Vec3 at = glow.at + towards * shift;
    renderer.Add(modelOf(colour), world * Translation(at), std::vector{picture()},
                 Renderer::Role::Overlay);
}

} // namespace korvat
