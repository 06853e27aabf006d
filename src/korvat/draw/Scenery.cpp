// SPDX-License-Identifier: MIT
#include "korvat/draw/Scenery.h"

#include "korvat/draw/Renderer.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace korvat {
namespace {

constexpr float kReach = 1200;     ///< half the length of the ground and track, metres
constexpr float kGrassTile = 12;   ///< metres of ground per repetition of the texture
constexpr float kTrackTile = 2.4f; ///< metres of track per repetition of the texture: four sleepers
constexpr float kGroundHeight = -0.72f, kSleeperTop = -0.17f, kShoulder = 1.75f, kFoot = 3.0f;
constexpr float kWidestVehicle = 4.5f, kLowFloor = 1.5f, kShadeMargin = 1.4f;
constexpr float kShadeHeight = kSleeperTop + 0.015f;
constexpr float kRailInside = 0.7175f, kRailWidth = 0.07f;

/// Returns noise of 0 to 1 for a position, the same on every machine.
float noiseAt(unsigned x, unsigned y, unsigned seed)
{
    unsigned h = x * 374761393u + y * 668265263u + seed * 2246822519u;
    h = (h ^ (h >> 13)) * 1274126177u;
    return static_cast<float>((h ^ (h >> 16)) & 0xFFFF) / 65535.0f;
}

/// Returns noise without hard edges, in cells of `cell` pixels, that repeats after `side` pixels.
float smoothNoise(unsigned x, unsigned y, unsigned cell, unsigned side, unsigned seed)
{
    const unsigned cells = side / cell;
    const auto corner = [&](unsigned dx, unsigned dy) {
        return noiseAt((x / cell + dx) % cells, (y / cell + dy) % cells, seed);
    };
    const auto ease = [cell](unsigned at) {
        const float t = static_cast<float>(at % cell) / static_cast<float>(cell);
        return t * t * (3 - 2 * t);
    };
    const float tx = ease(x), ty = ease(y);
    return std::lerp(std::lerp(corner(0, 0), corner(1, 0), tx),
                     std::lerp(corner(0, 1), corner(1, 1), tx), ty);
}

Tint scaled(const Tint &colour, float factor)
{
    return {colour.r * factor, colour.g * factor, colour.b * factor, 1};
}

Tint mixed(const Tint &a, const Tint &b, float t)
{
    return {std::lerp(a.r, b.r, t), std::lerp(a.g, b.g, t), std::lerp(a.b, b.b, t), 1};
}

Tint grassAt(unsigned x, unsigned y, unsigned side)
{
    const float patches = smoothNoise(x, y, side / 8, side, 1);
    const float tufts = smoothNoise(x, y, 4, side, 2);
    const Tint meadow = mixed({0.36f, 0.44f, 0.22f}, {0.45f, 0.49f, 0.27f}, patches);
    return scaled(meadow, 0.82f + 0.22f * tufts + 0.12f * noiseAt(x, y, 3));
}

Tint ballastAt(unsigned x, unsigned y, unsigned)
{
    const float stones = noiseAt(x / 2, y / 2, 4) * 0.45f + noiseAt(x, y, 5) * 0.25f;
    return scaled({0.55f, 0.52f, 0.48f}, 0.62f + stones * 0.75f);
}

/// x runs across the track, y along it.
Tint trackAt(unsigned x, unsigned y, unsigned side)
{
    const float across = (static_cast<float>(x) / static_cast<float>(side) - 0.5f) * 2 * kShoulder;
    const float along = std::fmod(static_cast<float>(y) / static_cast<float>(side) * 4, 1.0f);
    if (std::abs(across) < 1.3f && along > 0.28f && along < 0.70f) {
        const float grain = smoothNoise(x, y, 16, side, 6) * 0.12f + noiseAt(x / 8, y, 7) * 0.10f;
        return scaled({0.34f, 0.29f, 0.25f}, 0.88f + grain);
    }
    const float rust = std::max(0.0f, 1 - std::abs(std::abs(across) - 0.75f) * 3) * 0.25f;
    return mixed(ballastAt(x, y, side), {0.33f, 0.25f, 0.19f}, rust);
}

template <typename ColourAt> TexturePtr paint(unsigned side, ColourAt colourAt)
{
    auto texture = std::make_shared<Texture>();
    texture->width = texture->height = side;
    texture->levels = {
        {side, side, PixelFormat::Rgba8, 0, LevelSize(PixelFormat::Rgba8, side, side)}};
    texture->data.reserve(texture->levels[0].size);
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x) {
            const Tint colour = colourAt(x, y, side);
            for (const float part : {colour.r, colour.g, colour.b, 1.0f})
                texture->data.push_back(
                    static_cast<std::uint8_t>(std::clamp(part, 0.0f, 1.0f) * 255));
        }
    return texture;
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
    addStrip(*model, {-kReach, kGroundHeight}, {kReach, kGroundHeight}, -kReach / kGrassTile,
             kReach / kGrassTile, kGrassTile);
    endPart(*model, 0, {});
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
    auto texture = std::make_shared<Texture>();
    texture->width = texture->height = side;
    texture->alphaBits = 8;
    texture->levels = {
        {side, side, PixelFormat::Rgba8, 0, LevelSize(PixelFormat::Rgba8, side, side)}};
    const auto rise = [](unsigned at) {
        const float inside = static_cast<float>(std::min(at, side - 1 - at)) / (side * 0.22f);
        return std::min(1.0f, inside * inside);
    };
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x) {
            texture->data.insert(texture->data.end(), 3, std::uint8_t{14});
            texture->data.push_back(static_cast<std::uint8_t>(175 * rise(x) * rise(y)));
        }
    return texture;
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
    , m_track(makeTrack())
    , m_shade(makeShade())
    , m_groundTextures{paint(256, grassAt)}
    , m_trackTextures{paint(512, trackAt), paint(256, ballastAt)}
    , m_shadeTextures{paintShade()}
{
}

const Scenery &Scenery::shared()
{
    static const Scenery scenery;
    return scenery;
}

void Scenery::AddTo(Renderer &renderer, Vec3 eye)
{
    const Scenery &scenery = shared();
    // In whole repetitions of the textures, so that they do not seem to glide along.
    renderer.Add(scenery.m_ground,
                 Translation({snapped(eye.x, kGrassTile), 0, snapped(eye.z, kGrassTile)}),
                 scenery.m_groundTextures);
    renderer.Add(scenery.m_track, Translation({0, 0, snapped(eye.z, kTrackTile)}),
                 scenery.m_trackTextures);
}

void Scenery::AddShades(Renderer &renderer)
{
    const Scenery &scenery = shared();
    std::vector<Transform> places;
    for (const Renderer::Placed &placed : renderer.Coming()) {
        const Bounds &box = placed.model->box;
        if (!isVehicle(box))
            continue;
        const Vec3 size = box.most - box.least, middle = (box.most + box.least) * 0.5f;
        places.push_back(Scaling({size.x + kShadeMargin, 1, size.z + kShadeMargin}) *
                         Translation({middle.x, kShadeHeight, middle.z}) * placed.world);
    }
    for (const Transform &place : places)
        renderer.Add(scenery.m_shade, place, scenery.m_shadeTextures);
}

} // namespace korvat
