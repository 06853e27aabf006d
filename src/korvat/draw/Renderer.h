// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Device.h"
#include "korvat/draw/MergedParts.h"
#include "korvat/model/ModelSource.h"
#include "korvat/model/Pose.h"

#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace korvat {

/// A rectangle of an image, in pixels from the upper left corner.
struct Tile
{
    int left = 0, top = 0, width = 0, height = 0;
};

/// Turns models into frames: collects the models of a scene, culls those that the camera cannot
/// see, sorts the rest into passes and draws them, with one call for all that looks alike. Ensures
/// that the device holds each mesh and texture once, and releases those that are no longer in use.
///
/// Keeps the collected frame, so that it can be painted again at any time: after a resize, after
/// the window was hidden, on another device.
class Renderer
{
public:
    enum class Role : std::uint8_t
    {
        Object,  ///< casts shadows
        Scenery, ///< casts none
        Ground,  ///< casts none, and gives way to surfaces at the same height
        Overlay  ///< casts none: lights, and lines that explain objects
    };

    /// A model in a frame.
    struct Placed
    {
        std::shared_ptr<const Model> model;
        Transform world;
        std::vector<TexturePtr> pictures;
        Role role = Role::Object;
        PosePtr pose; ///< null for the rest pose

        Bounds Box() const { return pose ? pose->box : model->box; }
        Sphere Around() const { return pose ? pose->bounds : model->bounds; }
        bool Hides(const Part &part) const { return pose && pose->Hides(part); }
        Transform PlaceOf(const Part &part) const
        {
            return pose ? pose->PlaceOf(part, world) : world;
        }
    };

    /// Begins a new frame. Until End, Paint shows the previous one.
    void Begin();
    /// Adds a model. `pictures` are the textures of its slots; an empty or absent one draws without
    /// a texture. A null pose is the rest pose.
    void Add(std::shared_ptr<const Model> model, const Transform &world,
             std::span<const TexturePtr> pictures, Role role = Role::Object,
             PosePtr pose = nullptr);
    /// Returns the models added to the frame so far, which may be changed.
    const std::vector<Placed> &Coming() const { return m_coming; }
    std::vector<Placed> &Coming() { return m_coming; }
    void End();
    /// Empties both frames, so that their models can be freed.
    void Clear();

    void SetCamera(Vec3 eye, Vec3 target);
    Vec3 Eye() const { return m_eye; }
    /// Sets the distances from the camera, in metres, at which the haze begins and becomes opaque.
    void SetHaze(float nearest, float farthest);
    /// Sets the vertical field of view; kVerticalDegrees at first.
    void SetLens(float verticalDegrees) { m_verticalDegrees = verticalDegrees; }
    /// Sets whether objects cast shadows; false at first.
    void SetShadows(bool shadows) { m_shadows = shadows; }
    /// Sets whether it is night: the moon shines and casts no shadows, and night textures need no
    /// light. False at first.
    void SetNight(bool night) { m_isNight = night; }
    bool IsNight() const { return m_isNight; }
    /// Sets the lamps that light the scene at night; only the first kLightCones count.
    void SetCones(std::vector<LightCone> cones) { m_cones = std::move(cones); }
    /// Sets the clouds, null for none, and the height of the ground, below which there is no sky.
    void SetSurroundings(TexturePtr clouds, float ground);

    /// Sets a plain background without haze instead of the sky; nothing for the sky.
    void SetBackdrop(std::optional<Tint> backdrop) { m_backdrop = backdrop; }
    /// Sets the shape that images have on the screen: narrower ones then show more above and below,
    /// so that nothing is cut off at their sides. 0, the initial value, keeps the field of view.
    void SetShape(float widthByHeight) { m_shape = widthByHeight; }

    /// Paints the last complete frame. Requires the same device in every call, until Forget.
    void Paint(Device &device, int width, int height);
    /// Paints only a part of an image of this size; the device's frame has the size of the part.
    void PaintTile(Device &device, int width, int height, const Tile &tile);
    /// Forgets a device that is lost with everything on it.
    void Forget();
    /// Releases everything that the device holds.
    void ReleaseAll(Device &device);

    /// Returns the frame settings that Paint uses for an image of this size.
    FrameSetup Setup(int width, int height) const;

    static constexpr float kVerticalDegrees = 45; ///< field of view
    static constexpr float kNearest = 0.1f;       ///< near plane, in metres

private:
    /// One run of triangles at one place.
    template <typename Call> struct At
    {
        Call call;
        Transform place;
        float distance = 0; ///< from the camera; only of blended ones
    };
    using Draws = std::vector<At<DrawCall>>;
    using Shadows = std::vector<At<ShadowCall>>;
    struct Calls
    {
        Draws solid, tested;
        Draws onGround; ///< blended scenery
        Draws blended;  ///< in the order of the models and their parts
    };
    template <typename Thing> struct Held
    {
        std::weak_ptr<const Thing> thing;
        unsigned number = 0;
    };
    /// A model on the device, with its parts as the device holds them.
    struct HeldModel : Held<Model>
    {
        std::vector<Part> parts;
    };

    void releaseUnused(Device &device);
    const HeldModel &held(Device &device, const Placed &placed);
    unsigned numberOf(Device &device, const TexturePtr &picture);
    void collect(Device &device, const Placed &placed, Calls &calls);
    void paintShadows(Device &device, FrameSetup &setup);
    Shadows shadowsOf(Device &device, const Placed &placed);

    std::vector<Placed> m_coming, m_frame;
    using Meshes = std::unordered_map<const Model *, HeldModel>;
    Meshes m_meshes, m_posed; ///< models at rest, and in a pose
    std::unordered_map<const Texture *, Held<Texture>> m_textures;
    Vec3 m_eye{0, 0, -10}, m_target;
    float m_hazeNear = 50, m_hazeFar = 600;
    float m_verticalDegrees = kVerticalDegrees;
    TexturePtr m_clouds;
    float m_ground = -std::numeric_limits<float>::max();
    bool m_shadows = false, m_isNight = false;
    std::vector<LightCone> m_cones;
    std::optional<Tint> m_backdrop;
    float m_shape = 0;
};

} // namespace korvat
