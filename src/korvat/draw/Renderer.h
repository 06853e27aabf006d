// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Device.h"
#include "korvat/model/ModelSource.h"

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

namespace korvat {

/// Turns models into frames: collects what stands in the scene, leaves out what the camera cannot
/// see, orders it into passes and draws it. It also sees to it that the device holds each mesh and
/// each picture once, and lets go of those that nobody uses any more.
///
/// The collected frame stays, so that a picture can be painted anew at any time: after a resize,
/// after the window was hidden, on another device.
class Renderer
{
public:
    /// A model of a frame.
    struct Placed
    {
        std::shared_ptr<const Model> model;
        Transform world;
        std::vector<TexturePtr> pictures;
    };

    /// Begins a new frame; the last one stays what Paint shows until End.
    void Begin();
    /// Adds a model. `pictures` are those of its texture slots; an empty one, or a slot beyond
    /// them, draws without a texture.
    void Add(std::shared_ptr<const Model> model, const Transform &world,
             std::span<const TexturePtr> pictures);
    /// What was added to the frame that has begun.
    const std::vector<Placed> &Coming() const { return m_coming; }
    void End();
    /// Drops everything from both frames, so that models can go.
    void Clear();

    void SetCamera(Vec3 eye, Vec3 target);
    /// Where the haze begins and where there is nothing but haze, in metres from the camera.
    void SetHaze(float nearest, float farthest);

    /// Paints the last whole frame. The device must always be the same one, until Forget.
    void Paint(Device &device, int width, int height);
    /// The device and everything on it are gone.
    void Forget();
    /// Gives back everything that the device holds.
    void ReleaseAll(Device &device);

    /// The camera in front of a scene with this shape of picture, as Paint uses it.
    FrameSetup Setup(int width, int height) const;

    static constexpr float kVerticalDegrees = 45; ///< field of view
    static constexpr float kNearest = 0.1f;       ///< nothing closer is drawn, metres

private:
    struct Blended
    {
        DrawCall call;
        float distance = 0;
    };
    struct Calls
    {
        std::vector<DrawCall> solid, tested;
        std::vector<Blended> blended; ///< in the order of the models and their parts
    };
    template <typename Thing> struct Held
    {
        std::weak_ptr<const Thing> thing;
        unsigned number = 0;
    };

    void releaseUnused(Device &device);
    unsigned numberOf(Device &device, const std::shared_ptr<const Model> &model);
    unsigned numberOf(Device &device, const TexturePtr &picture);
    void collect(Device &device, const Placed &placed, Calls &calls);
    static void drawSolid(Device &device, std::vector<DrawCall> &calls);
    static void drawBlended(Device &device, std::vector<Blended> &calls);

    std::vector<Placed> m_coming, m_frame;
    std::unordered_map<const Model *, Held<Model>> m_meshes;
    std::unordered_map<const Texture *, Held<Texture>> m_textures;
    Vec3 m_eye{0, 0, -10}, m_target;
    float m_hazeNear = 50, m_hazeFar = 600;
};

} // namespace korvat
