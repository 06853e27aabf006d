// SPDX-License-Identifier: MIT
#include "korvat/draw/Renderer.h"

#include "korvat/draw/Night.h"
#include "korvat/draw/ShadowFit.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <tuple>

namespace korvat {
namespace {

// Of 255; chosen for real textures: lower limits make distant fences solid.
constexpr float kTestLimit = 200 / 255.0f, kSolidLimit = 250 / 255.0f, kVisibleLimit = 10 / 255.0f;
constexpr float kCastingLimit = 0.5f;

/// Multiple of the haze's far limit at which drawing ends: farther out, only the sky shows.
constexpr float kBeyondHaze = 1.5f;

/// Returns how a part is blended, which depends on its shader and its texture's alpha.
Mixing mixingOf(const Surface &surface, const Texture *picture)
{
    if (surface.blending == Blending::None || !picture || picture->alphaBits == 0)
        return Mixing::Replace;
    if (picture->alphaBits == 1 && surface.alphaTest)
        return Mixing::Replace;
    return surface.blending == Blending::Add ? Mixing::Add : Mixing::Alpha;
}

bool isTested(const Surface &surface, const Texture *picture)
{
    return surface.alphaTest && picture && picture->alphaBits != 0;
}

/// Returns the texture of a part, null for none.
TexturePtr pictureOf(const Part &part, const Renderer::Placed &placed)
{
    const auto slot = static_cast<std::size_t>(part.slot);
    return part.slot >= 0 && slot < placed.pictures.size() ? placed.pictures[slot] : nullptr;
}

float scaleOf(const Transform &world)
{
    float largest = 0;
    for (int row = 0; row < 3; ++row)
        largest = std::max(largest, Length({world.At(row, 0), world.At(row, 1), world.At(row, 2)}));
    return largest;
}

Sphere moved(const Sphere &sphere, const Transform &world)
{
    return {TransformPoint(sphere.centre, world), sphere.radius * scaleOf(world)};
}

/// Passes the calls to the device in their order; equal neighbours become one.
template <typename Calls, typename Draw> void drawInOrder(const Calls &calls, Draw draw)
{
    std::vector<Transform> places;
    for (std::size_t i = 0; i < calls.size(); ++i) {
        places.push_back(calls[i].place);
        if (i + 1 < calls.size() && calls[i + 1].call == calls[i].call)
            continue;
        draw(calls[i].call, std::span<const Transform>(places));
        places.clear();
    }
}

/// Passes the calls to the device in any order, so equal ones become one, and those that share a
/// texture and a mesh are neighbours.
template <typename Calls, typename Draw> void drawGrouped(Calls &calls, Draw draw)
{
    std::stable_sort(calls.begin(), calls.end(), [](const auto &a, const auto &b) {
        return std::tie(a.call.texture, a.call.mesh, a.call.firstIndex, a.call.indexCount) <
               std::tie(b.call.texture, b.call.mesh, b.call.firstIndex, b.call.indexCount);
    });
    drawInOrder(calls, draw);
}

/// Draws the nearly solid pixels of blended surfaces with depth, so that glass behind a window bar
/// does not show through it.
template <typename Calls, typename Draw> void drawNearlySolid(const Calls &blended, Draw draw)
{
    Calls calls;
    for (const auto &each : blended) {
        if (each.call.mixing == Mixing::Add)
            continue;
        calls.push_back(each);
        calls.back().call.mixing = Mixing::Replace;
        calls.back().call.alphaLimit = kSolidLimit;
    }
    drawGrouped(calls, draw);
}

/// Draws blended surfaces over everything that was drawn before, in their order.
template <typename Calls, typename Draw> void drawTransparent(Calls &blended, Draw draw)
{
    for (auto &each : blended) {
        each.call.writesDepth = false;
        each.call.alphaLimit = kVisibleLimit;
    }
    drawInOrder(blended, draw);
}

/// Sets the colours of the sky. Below the ground it looks like soil, with some light from above.
void setSky(FrameSetup &setup, bool below)
{
    setup.zenith = below ? Tint{0.58f, 0.54f, 0.47f, 1} : Tint{0.23f, 0.44f, 0.74f, 1};
    setup.horizon = below ? Tint{0.50f, 0.46f, 0.40f, 1} : Tint{0.78f, 0.85f, 0.90f, 1};
    setup.nadir = below ? Tint{0.30f, 0.26f, 0.22f, 1} : setup.horizon;
}

/// Returns the vertical field of view that shows `factor` times as much as usual.
float verticalRadians(float usualDegrees, float factor)
{
    const float usual = usualDegrees * std::numbers::pi_v<float> / 180;
    return factor > 1 ? 2 * std::atan(std::tan(usual / 2) * factor) : usual;
}

/// Returns the settings for a part of a frame: its projection fills the part with what the whole
/// frame shows there.
FrameSetup cutTo(const Tile &tile, FrameSetup setup)
{
    if (tile.width == setup.width && tile.height == setup.height)
        return setup;
    const float width = static_cast<float>(setup.width), height = static_cast<float>(setup.height);
    const float scaleX = width / static_cast<float>(tile.width);
    const float scaleY = height / static_cast<float>(tile.height);
    const float middleX = static_cast<float>(tile.left) + static_cast<float>(tile.width) / 2;
    const float middleY = static_cast<float>(tile.top) + static_cast<float>(tile.height) / 2;
    Transform cut = Scaling({scaleX, scaleY, 1});
    cut.At(3, 0) = (1 - 2 * middleX / width) * scaleX;
    cut.At(3, 1) = (2 * middleY / height - 1) * scaleY;
    setup.projection = setup.projection * cut;
    setup.width = tile.width;
    setup.height = tile.height;
    return setup;
}

} // namespace

void Renderer::Begin()
{
    m_coming.clear();
}

void Renderer::Add(std::shared_ptr<const Model> model, const Transform &world,
                   std::span<const TexturePtr> pictures, Role role, PosePtr pose)
{
    if (model && !model->mesh.indices.empty())
        m_coming.push_back(
            {std::move(model), world, {pictures.begin(), pictures.end()}, role, std::move(pose)});
}

void Renderer::End()
{
    std::swap(m_frame, m_coming);
    m_coming.clear();
}

void Renderer::Clear()
{
    m_coming.clear();
    m_frame.clear();
}

void Renderer::SetCamera(Vec3 eye, Vec3 target)
{
    m_eye = eye;
    m_target = target;
}

void Renderer::SetHaze(float nearest, float farthest)
{
    m_hazeNear = nearest;
    m_hazeFar = std::max(farthest, nearest + 1);
}

FrameSetup Renderer::Setup(int width, int height) const
{
    FrameSetup setup;
    setup.width = std::max(1, width);
    setup.height = std::max(1, height);
    setup.eye = m_eye;
    setup.view = LookAt(m_eye, m_target);
    const float aspect = static_cast<float>(setup.width) / static_cast<float>(setup.height);
    const float beyond = std::max(m_hazeFar * kBeyondHaze, 100.0f);
    setup.projection =
        Perspective(verticalRadians(m_verticalDegrees, std::max(m_shape / aspect, 1.0f)), aspect,
                    kNearest, beyond);
    // From the right of the track and ahead of the train, so that its side and its front are
    // bright.
    setup.toSun = Normalised({0.48f, 0.76f, 0.62f});
    setup.sun = {0.66f, 0.62f, 0.54f};
    setup.ambient = {0.66f, 0.70f, 0.77f};
    setup.ambientBelow = {0.51f, 0.49f, 0.44f};
    setSky(setup, m_eye.y < m_ground);
    if (m_isNight)
        Darken(setup, m_cones);
    setup.hazeNear = m_hazeNear;
    setup.hazeFar = m_hazeFar;
    if (m_backdrop) {
        setup.hasSky = false;
        setup.horizon = *m_backdrop;
        setup.hazeNear = beyond; // nothing is drawn so far away
        setup.hazeFar = 2 * beyond;
    }
    return setup;
}

void Renderer::SetSurroundings(TexturePtr clouds, float ground)
{
    m_clouds = std::move(clouds);
    m_ground = ground;
}

void Renderer::Paint(Device &device, int width, int height)
{
    PaintTile(device, width, height, {0, 0, width, height});
}

void Renderer::PaintTile(Device &device, int width, int height, const Tile &tile)
{
    FrameSetup setup = Setup(width, height);
    if (m_clouds && m_eye.y >= m_ground && !m_isNight)
        setup.clouds = numberOf(device, m_clouds);
    if (m_shadows && !m_isNight)
        paintShadows(device, setup);
    const Frustum frustum(setup.view * setup.projection);
    device.BeginFrame(cutTo(tile, setup));
    releaseUnused(device);
    Calls calls;
    for (const Placed &placed : m_frame)
        if (frustum.Sees(moved(placed.Around(), placed.world)))
            collect(device, placed, calls);
    const auto draw = [&device](const DrawCall &call, std::span<const Transform> places) {
        device.Draw(call, places);
    };
    drawGrouped(calls.solid, draw);
    drawGrouped(calls.tested, draw);
    drawNearlySolid(calls.onGround, draw);
    drawNearlySolid(calls.blended, draw);
    drawTransparent(calls.onGround, draw);
    std::stable_sort(calls.blended.begin(), calls.blended.end(),
                     [](const auto &a, const auto &b) { return a.distance > b.distance; });
    drawTransparent(calls.blended, draw);
    device.EndFrame();
}

void Renderer::paintShadows(Device &device, FrameSetup &setup)
{
    std::vector<const Placed *> objects;
    std::vector<Caster> casters;
    for (const Placed &placed : m_frame) {
        if (placed.role != Role::Object)
            continue;
        objects.push_back(&placed);
        casters.push_back({placed.Box(), moved(placed.Around(), placed.world), placed.world});
    }
    const ShadowFit fit = FitShadows(setup, casters);
    setup.hasShadows = true;
    setup.shadows = fit.maps;
    std::vector<Shadows> calls(objects.size());
    for (std::size_t number = 0; number < kShadowMaps; ++number) {
        device.BeginShadow(fit.maps[number], number);
        Shadows cast;
        for (const std::size_t i : fit.casters[number]) {
            if (calls[i].empty())
                calls[i] = shadowsOf(device, *objects[i]);
            cast.insert(cast.end(), calls[i].begin(), calls[i].end());
        }
        drawGrouped(cast, [&device](const ShadowCall &call, std::span<const Transform> places) {
            device.DrawShadow(call, places);
        });
    }
}

/// Returns what a model draws into a shadow map. Adjoining solid parts become one call; glass and
/// what shines cast no shadow.
Renderer::Shadows Renderer::shadowsOf(Device &device, const Placed &placed)
{
    Shadows calls;
    ShadowCall call;
    const HeldModel &model = held(device, placed);
    call.mesh = model.number;
    for (const Part &part : model.parts) {
        const TexturePtr picture = pictureOf(part, placed);
        const Mixing mixing = mixingOf(part.surface, picture.get());
        if (mixing == Mixing::Add || placed.Hides(part))
            continue;
        const Transform place = placed.PlaceOf(part);
        const bool holed = mixing == Mixing::Alpha || isTested(part.surface, picture.get());
        At<ShadowCall> *last = calls.empty() || holed ? nullptr : &calls.back();
        if (last && last->call.texture == 0 && last->place == place &&
            last->call.firstIndex + last->call.indexCount == part.firstIndex) {
            last->call.indexCount += part.indexCount;
            continue;
        }
        call.firstIndex = part.firstIndex;
        call.indexCount = part.indexCount;
        call.texture = holed ? numberOf(device, picture) : 0;
        call.addressing = part.surface.addressing;
        call.alphaLimit = holed ? kCastingLimit : 0;
        calls.push_back({call, place});
    }
    return calls;
}

void Renderer::collect(Device &device, const Placed &placed, Calls &calls)
{
    const HeldModel &model = held(device, placed);
    DrawCall call;
    call.mesh = model.number;
    call.isGround = placed.role == Role::Ground;
    call.isLines = placed.model->isLines;
    for (const Part &part : model.parts) {
        if (placed.Hides(part))
            continue;
        const Transform place = placed.PlaceOf(part);
        const TexturePtr picture = pictureOf(part, placed);
        const bool tested = isTested(part.surface, picture.get());
        call.texture = picture ? numberOf(device, picture) : 0;
        call.firstIndex = part.firstIndex;
        call.indexCount = part.indexCount;
        const bool needsNoLight = m_isNight && picture && picture->isNight;
        call.finish = needsNoLight ? Finish::FullBright : part.surface.finish;
        call.addressing = part.surface.addressing;
        call.mipmaps = part.surface.mipmaps;
        call.sharpness = part.surface.sharpness;
        call.colour = part.surface.colour;
        call.mixing = mixingOf(part.surface, picture.get());
        call.opaque = call.mixing == Mixing::Replace && !tested;
        call.writesDepth = true;
        call.alphaLimit = tested ? kTestLimit : 0;
        call.softEdge = tested && call.mixing == Mixing::Replace;
        if (call.mixing == Mixing::Replace)
            (tested ? calls.tested : calls.solid).push_back({call, place});
        else if (placed.role == Role::Object || placed.role == Role::Overlay)
            calls.blended.push_back(
                {call, place, Length(TransformPoint(part.bounds.centre, place) - m_eye)});
        else
            calls.onGround.push_back({call, place});
    }
}

const Renderer::HeldModel &Renderer::held(Device &device, const Placed &placed)
{
    // Only parts of a posed model can move apart, so only there they are not merged.
    const bool isPosed = placed.pose != nullptr;
    HeldModel &held = (isPosed ? m_posed : m_meshes)[placed.model.get()];
    if (held.number == 0) {
        MergedParts merged = MergeParts(*placed.model, isPosed);
        held.thing = placed.model;
        held.number = device.UploadMesh(placed.model->mesh.vertices, merged.indices);
        held.parts = std::move(merged.parts);
    }
    return held;
}

unsigned Renderer::numberOf(Device &device, const TexturePtr &picture)
{
    Held<Texture> &held = m_textures[picture.get()];
    if (held.number == 0)
        held = {picture, device.UploadTexture(*picture)};
    return held.number;
}

void Renderer::releaseUnused(Device &device)
{
    const auto isUnused = [&device](const auto &entry) {
        const bool unused = entry.second.thing.expired();
        if (unused)
            device.ReleaseMesh(entry.second.number);
        return unused;
    };
    std::erase_if(m_meshes, isUnused);
    std::erase_if(m_posed, isUnused);
    std::erase_if(m_textures, [&device](const auto &entry) {
        const bool unused = entry.second.thing.expired();
        if (unused)
            device.ReleaseTexture(entry.second.number);
        return unused;
    });
}

void Renderer::Forget()
{
    m_meshes.clear();
    m_posed.clear();
    m_textures.clear();
}

void Renderer::ReleaseAll(Device &device)
{
    for (const auto *meshes : {&m_meshes, &m_posed})
        for (const auto &entry : *meshes)
            device.ReleaseMesh(entry.second.number);
    for (const auto &entry : m_textures)
        device.ReleaseTexture(entry.second.number);
    Forget();
}

} // namespace korvat
