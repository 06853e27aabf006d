// SPDX-License-Identifier: MIT
#include "viewer/Overlays.h"

#include "korvat/draw/Renderer.h"
#include "korvat/model/ModelLibrary.h"
#include "viewer/TSView.h"

#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

using korvat::Renderer;
using korvat::Tint;
using korvat::Transform;
using korvat::Vec3;

namespace viewer {
namespace {

constexpr Tint kDarkEdges = {0.05f, 0.07f, 0.12f, 1}, kBrightEdges = {0.80f, 0.86f, 0.95f, 1};
constexpr Tint kNormals = {0.10f, 0.90f, 1, 1};
constexpr Tint kSizeBox = {1, 0.85f, 0.10f, 1}, kCouplerBox = {1, 0.25f, 0.10f, 1};
constexpr Vec3 kCouplerSize = {0.3f, 0.3f, 0.5f}; ///< metres
constexpr float kConeStrength = 0.9f;

Tint tintOf(std::uint32_t colour)
{
    const auto part = [colour](int shift) {
        return static_cast<float>(colour >> shift & 0xFF) / 255;
    };
    return {part(16), part(8), part(0), part(24)};
}

float radians(float degrees)
{
    return degrees * std::numbers::pi_v<float> / 180;
}

/// Returns the direction of a light. No lamp shines through its own vehicle, whatever its azimuth.
Vec3 directionOf(const content::VehicleLight &light, const Transform &world)
{
    const float azimuth = radians(light.azimuth), elevation = radians(light.elevation);
    Vec3 along{std::sin(azimuth) * std::cos(elevation), std::sin(elevation),
               std::cos(azimuth) * std::cos(elevation)};
    if (light.at[2] > 0 ? along.z < -0.5f : light.at[2] < 0 && along.z > 0.5f)
        along.z = -along.z;
    return korvat::Normalised(korvat::TransformDirection(along, world));
}

Vec3 placeOf(const content::VehicleLight &light, const Transform &world)
{
    return korvat::TransformPoint({light.at[0], light.at[1], light.at[2]}, world);
}

/// Calls `visit` with each light that shines, and the place of its vehicle.
template <typename Visit>
void eachLight(const ViewObjects &objects, const ViewOptions &options, const Visit &visit)
{
    for (int place = 1; place <= objects.Count(); ++place) {
        const TSViewObject &object = objects.Item(place);
        const Fittings &fittings = object.Fittings();
        if (!fittings.lights)
            continue;
        const Ends &ends = fittings.ends;
        const content::LightSituation now{ends.first, ends.last, ends.frontCoupled,
                                          ends.rearCoupled, options.night};
        for (const content::VehicleLight &light : fittings.lights->lights)
            if (light.ShinesIn(now))
                visit(light, object.Model().WorldMatrix());
    }
}

korvat::LightCone coneOf(const content::VehicleLight &light, const Transform &world)
{
    const Tint colour = tintOf(light.colour);
    const float strength = colour.a * kConeStrength;
    return {placeOf(light, world),
            directionOf(light, world),
            {colour.r * strength, colour.g * strength, colour.b * strength, 1},
            light.radius,
            std::cos(radians(light.angle))};
}

void markMissing(Renderer &renderer)
{
    for (Renderer::Placed &placed : renderer.Coming())
        for (korvat::TexturePtr &picture : placed.pictures)
            if (picture == korvat::ModelLibrary::Checker())
                picture = korvat::ModelLibrary::Magenta();
}

} // namespace

void Overlays::SetLight(Renderer &renderer, const ViewObjects &objects, const ViewOptions &options)
{
    std::vector<korvat::LightCone> cones;
    if (options.night && options.lights)
        eachLight(objects, options, [&](const auto &light, const Transform &world) {
            if (light.isCone && cones.size() < korvat::kLightCones)
                cones.push_back(coneOf(light, world));
        });
    renderer.SetNight(options.night);
    renderer.SetCones(std::move(cones));
}

void Overlays::AddTo(Renderer &renderer, const ViewObjects &objects, const ViewOptions &options)
{
    if (options.marksMissing)
        markMissing(renderer);
    if (options.wireframe || options.normals)
        addLines(renderer, options);
    if (options.boxes)
        addBoxes(renderer, objects);
    if (options.lights)
        addGlows(renderer, objects, options);
}

/// Edges replace the surfaces of their model; normals are added to it.
void Overlays::addLines(Renderer &renderer, const ViewOptions &options)
{
    if (!m_normals)
        m_normals.emplace(korvat::LineKind::Normals, kNormals);
    if (!m_edges || m_edgesAreBright != options.night)
        m_edges.emplace(korvat::LineKind::Edges, options.night ? kBrightEdges : kDarkEdges);
    m_edgesAreBright = options.night;
    std::vector<Renderer::Placed> normals;
    for (Renderer::Placed &placed : renderer.Coming()) {
        if (placed.role != Renderer::Role::Object)
            continue;
        if (options.normals)
            normals.push_back({m_normals->Of(placed.model),
                               placed.world,
                               {},
                               Renderer::Role::Overlay,
                               placed.pose});
        if (options.wireframe)
            placed = {
                m_edges->Of(placed.model), placed.world, {}, Renderer::Role::Overlay, placed.pose};
    }
    for (const Renderer::Placed &placed : normals)
        renderer.Add(placed.model, placed.world, placed.pictures, placed.role, placed.pose);
    m_normals->Tidy();
    m_edges->Tidy();
}

void Overlays::addBoxes(Renderer &renderer, const ViewObjects &objects)
{
    if (!m_sizeBox) {
        m_sizeBox = korvat::MakeBoxLines(kSizeBox);
        m_couplerBox = korvat::MakeBoxLines(kCouplerBox);
    }
    const auto add = [&renderer](const auto &model, Vec3 size, Vec3 middle,
                                 const Transform &world) {
        renderer.Add(model, korvat::Scaling(size) * korvat::Translation(middle) * world, {},
                     Renderer::Role::Overlay);
    };
    for (int place = 1; place <= objects.Count(); ++place) {
        const Fittings &fittings = objects.Item(place).Fittings();
        if (!fittings.boxes)
            continue;
        const content::VehicleBoxes &boxes = *fittings.boxes;
        const Transform &world = objects.Item(place).Model().WorldMatrix();
        if (const auto &size = boxes.size)
            add(m_sizeBox, {(*size)[0], (*size)[1], (*size)[2]}, {0, (*size)[1] / 2, 0}, world);
        // The box ends where the vehicle does.
        const float end = fittings.ends.length / 2 - kCouplerSize.z / 2;
        for (const float facing : {1.0f, -1.0f}) {
            const auto &at = facing > 0 ? boxes.front : boxes.rear;
            if (boxes.hasCouplers)
                add(m_couplerBox, kCouplerSize, {at[0] * facing, at[1], (end + at[2]) * facing},
                    world);
        }
    }
}

void Overlays::addGlows(Renderer &renderer, const ViewObjects &objects, const ViewOptions &options)
{
    eachLight(objects, options, [&](const auto &light, const Transform &world) {
        if (!light.isCone)
            m_glows.Add(renderer, {placeOf(light, world), directionOf(light, world), light.radius,
                                   tintOf(light.colour)});
    });
}

} // namespace viewer
