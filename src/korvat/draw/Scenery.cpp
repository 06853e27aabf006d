// SPDX-License-Identifier: MIT
#include "korvat/draw/Scenery.h"

#include "korvat/draw/Noise.h"
#include "korvat/draw/Renderer.h"
#include "korvat/draw/Sky.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvat {
namespace {

constexpr float kReach = 1200;     ///< half the length of the ground and track, metres
constexpr float kTrackTile = 2.4f; ///< metres of track per repetition of the texture: four sleepers
constexpr float kGroundHeight = -0.72f, kSleeperTop = -0.17f, kShoulder = 1.75f, kFoot = 3.0f;
constexpr float kWidestVehicle = 4.5f, kLowFloor = 1.5f, kShadeMargin = 1.4f;
constexpr float kShadeHeight = kSleeperTop + 0.015f;
constexpr unsigned kGrassSide = 256, kTrackSide = 512, kBallastSide = 256,
                   kSoilSide = 128; ///< pixels
constexpr float kSoilTile = 7;      ///< metres
constexpr float kRailInside = 0.7175f, kRailWidth = 0.07f;

Tint scaled(const Tint &colour, float factor)
{
    return {colour.r * factor, colour.g * factor, colour.b * factor, 1};
}

Tint mixed(const Tint &a, const Tint &b, float t)
{
    return {std::lerp(a.r, b.r, t), std::lerp(a.g, b.g, t), std::lerp(a.b, b.b, t), 1};
}

Tint ballastAt(unsigned x, unsigned y)
{
    const float stones = NoiseAt(x / 2, y / 2, 4) * 0.45f + NoiseAt(x, y, 5) * 0.25f;
    return scaled({0.55f, 0.52f, 0.48f}, 0.62f + stones * 0.75f);
}

/// x runs across the track, y along it.
Tint trackAt(unsigned x, unsigned y, const SmoothNoise &wood)
{
    const float across = (static_cast<float>(x) / kTrackSide - 0.5f) * 2 * kShoulder;
    const float along = std::fmod(static_cast<float>(y) / kTrackSide * 4, 1.0f);
    if (std::abs(across) < 1.3f && along > 0.28f && along < 0.70f) {
        const float grain = wood.At(x, y) * 0.12f + NoiseAt(x / 8, y, 7) * 0.10f;
        return scaled({0.34f, 0.29f, 0.25f}, 0.88f + grain);
    }
    const float rust = std::max(0.0f, 1 - std::abs(std::abs(across) - 0.75f) * 3) * 0.25f;
    return mixed(ballastAt(x, y), {0.33f, 0.25f, 0.19f}, rust);
}

TexturePtr paintGrass()
{
    const SmoothNoise patches(32, kGrassSide, 1), tufts(8, kGrassSide, 2), blades(2, kGrassSide, 3);
    const SmoothNoise meadows(64, kGrassSide, 8), spots(16, kGrassSide, 9);
    return PaintTexture(kGrassSide, 8, [&](unsigned x, unsigned y) {
        const float light = 0.80f + 0.14f * patches.At(x, y) + 0.16f * tufts.At(x, y) +
                            0.16f * blades.At(x, y) + 0.10f * NoiseAt(x, y, 4);
        Tint grass = scaled({0.37f, 0.40f, 0.23f}, light);
        grass.a = 0.65f * meadows.At(x, y) + 0.35f * spots.At(x, y);
        return grass;
    });
}

TexturePtr paintTrack()
{
    const SmoothNoise wood(16, kTrackSide, 6);
    return PaintTexture(kTrackSide, 0, [&](unsigned x, unsigned y) { return trackAt(x, y, wood); });
}

/// Needs no light, so it is darker at night itself.
TexturePtr paintSoil(float light)
{
    const SmoothNoise clods(16, kSoilSide, 11), stones(2, kSoilSide, 12);
    return PaintTexture(kSoilSide, 8, [&](unsigned x, unsigned y) {
        Tint soil = scaled({0.40f, 0.34f, 0.27f},
                           light * (0.7f + 0.4f * clods.At(x, y) + 0.3f * stones.At(x, y)));
        soil.a = 0.5f;
        return soil;
    });
}

/// Adds a strip along the whole track between two lines (x, y), its texture repeated every `tile`
/// metres. It faces to the left of the direction from the first line to the second.
void addStrip(Model &model, std::array<float, 2> from, std::array<float, 2> to, float u0, float u1,
              float tile)
{
    const Vec3 normal = Normalised({from[1] - to[1], to[0] - from[0], 0});
    const auto first = static_cast<std::uint32_t>(model.mesh.vertices.size());
    for (const float z : {-kReach, kReach}) {
        model.mesh.vertices.push_back({{from[0], from[1], z}, normal, {u0, z / tile}});
        model.mesh.vertices.push_back({{to[0], to[1], z}, normal, {u1, z / tile}});
    }
    for (const std::uint32_t corner : {0u, 2u, 3u, 0u, 3u, 1u})
        model.mesh.indices.push_back(first + corner);
}

void endPart(Model &model, int slot, const Surface &surface)
{
    Part part;
    part.firstIndex =
        model.parts.empty() ? 0 : model.parts.back().firstIndex + model.parts.back().indexCount;
    part.indexCount = static_cast<std::uint32_t>(model.mesh.indices.size()) - part.firstIndex;
    part.slot = slot;
    part.surface = surface;
    model.parts.push_back(part);
}

std::shared_ptr<const Model> makeGround()
{
    auto model = std::make_shared<Model>();
    // The device places this texture itself.
    addStrip(*model, {-kReach, 0}, {kReach, 0}, 0, 1, 1);
    endPart(*model, 0, {});
    MeasureBounds(*model);
    return model;
}

/// Makes the ground as seen from below.
std::shared_ptr<const Model> makeSoil()
{
    auto model = std::make_shared<Model>();
    addStrip(*model, {kReach, 0}, {-kReach, 0}, kReach / kSoilTile, -kReach / kSoilTile, kSoilTile);
    Surface soil;
    soil.finish = Finish::FullBright;
    soil.blending = Blending::Alpha;
    endPart(*model, 0, soil);
    MeasureBounds(*model);
    return model;
}

void addRail(Model &model, float inside, float outside)
{
    const float left = std::min(inside, outside), right = std::max(inside, outside);
    addStrip(model, {left, kSleeperTop}, {left, 0}, 0, 1, 1);
    addStrip(model, {right, 0}, {right, kSleeperTop}, 0, 1, 1);
}

std::shared_ptr<const Model> makeTrack()
{
    auto model = std::make_shared<Model>();
    addStrip(*model, {-kShoulder, kSleeperTop}, {kShoulder, kSleeperTop}, 0, 1, kTrackTile);
    endPart(*model, 0, {});
    addStrip(*model, {-kFoot, kGroundHeight}, {-kShoulder, kSleeperTop}, 0, 0.5f, kTrackTile);
    addStrip(*model, {kShoulder, kSleeperTop}, {kFoot, kGroundHeight}, 0, 0.5f, kTrackTile);
    endPart(*model, 1, {});
    const float outside = kRailInside + kRailWidth;
    addRail(*model, kRailInside, outside);
    addRail(*model, -kRailInside, -outside);
    Surface rust;
    rust.colour = {0.36f, 0.27f, 0.21f, 1};
    endPart(*model, -1, rust);
    addStrip(*model, {kRailInside, 0}, {outside, 0}, 0, 1, 1);
    addStrip(*model, {-outside, 0}, {-kRailInside, 0}, 0, 1, 1);
    Surface steel;
    steel.finish = Finish::Shiny;
    steel.colour = {0.66f, 0.67f, 0.70f, 1};
    endPart(*model, -1, steel);
    MeasureBounds(*model);
    return model;
}

/// Makes a square of one by one metre.
std::shared_ptr<const Model> makeShade()
{
    auto model = std::make_shared<Model>();
    const Vec3 up{0, 1, 0};
    model->mesh.vertices = {{{-0.5f, 0, -0.5f}, up, {0, 0}},
                            {{-0.5f, 0, 0.5f}, up, {0, 1}},
                            {{0.5f, 0, 0.5f}, up, {1, 1}},
                            {{0.5f, 0, -0.5f}, up, {1, 0}}};
    model->mesh.indices = {0, 1, 2, 0, 2, 3};
    Surface surface;
    surface.finish = Finish::FullBright;
    surface.blending = Blending::Alpha;
    surface.addressing = AddressMode::Clamp;
    endPart(*model, 0, surface);
    MeasureBounds(*model);
    return model;
}

/// Paints a shade that is dark in the middle and transparent at the edges.
TexturePtr paintShade()
{
    constexpr unsigned side = 64;
    const auto rise = [](unsigned at) {
        const float inside = static_cast<float>(std::min(at, side - 1 - at)) / (side * 0.22f);
        return std::min(1.0f, inside * inside);
    };
    return PaintTexture(side, 8, [&](unsigned x, unsigned y) {
        return Tint{0.055f, 0.055f, 0.055f, 0.69f * rise(x) * rise(y)};
    });
}

/// True if a model of this size can be a vehicle on the track.
bool isVehicle(const Bounds &box)
{
    return box.most.x - box.least.x < kWidestVehicle && box.least.y < kLowFloor &&
           box.most.z - box.least.z > 1;
}

float snapped(float value, float step)
{
    return std::floor(value / step) * step;
}

} // namespace

Scenery::Scenery()
    : m_ground(makeGround())
    , m_soil(makeSoil())
    , m_track(makeTrack())
    , m_shade(makeShade())
    , m_clouds(PaintClouds())
    , m_groundTextures{paintGrass()}
    , m_soilTextures{paintSoil(1)}
    , m_nightSoilTextures{paintSoil(0.08f)}
    , m_trackTextures{paintTrack(), PaintTexture(kBallastSide, 0, ballastAt)}
    , m_shadeTextures{paintShade()}
{
}

const Scenery &Scenery::shared()
{
    static const Scenery scenery;
    return scenery;
}

void Scenery::AddTo(Renderer &renderer, Vec3 eye, Ground ground)
{
    const Scenery &scenery = shared();
    const bool plain = ground == Ground::Plain;
    const float height = plain ? 0 : kGroundHeight;
    renderer.SetSurroundings(scenery.m_clouds, height);
    // In whole repetitions of the textures, so that they do not seem to glide along.
    const Transform place =
        Translation({snapped(eye.x, kSoilTile), height, snapped(eye.z, kSoilTile)});
    renderer.Add(scenery.m_ground, place, scenery.m_groundTextures, Renderer::Role::Ground);
    renderer.Add(scenery.m_soil, place,
                 renderer.IsNight() ? scenery.m_nightSoilTextures : scenery.m_soilTextures,
                 Renderer::Role::Ground);
    if (!plain)
        renderer.Add(scenery.m_track, Translation({0, 0, snapped(eye.z, kTrackTile)}),
                     scenery.m_trackTextures, Renderer::Role::Scenery);
}

void Scenery::AddShades(Renderer &renderer)
{
    const Scenery &scenery = shared();
    std::vector<Transform> places;
    for (const Renderer::Placed &placed : renderer.Coming()) {
        const Bounds &box = placed.model->box;
        if (placed.role != Renderer::Role::Object || !isVehicle(box))
            continue;
        const Vec3 size = box.most - box.least, middle = (box.most + box.least) * 0.5f;
        places.push_back(Scaling({size.x + kShadeMargin, 1, size.z + kShadeMargin}) *
                         Translation({middle.x, kShadeHeight, middle.z}) * placed.world);
    }
    for (const Transform &place : places)
        renderer.Add(scenery.m_shade, place, scenery.m_shadeTextures, Renderer::Role::Scenery);
}

} // namespace korvat
