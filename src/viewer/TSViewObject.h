// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"
#include "korvat/draw/ShapeModel.h"
#include "viewer/Fittings.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// One shape in a scene: its model, its place and direction, and whether it shows its textures or,
/// while flashed, none. It does not draw. Angles are in radians, places in metres; a place that is
/// not finite is error 6.
///
/// A vehicle's loads and couplers are shapes added to the object. They move with it, but its
/// textures and its flashing are those of its own shape.
///
/// Its construction and destruction each write a line to the trace log: "> tsviewobject " and "<
/// tsviewobject ", followed by the object's address as a decimal number.
class TSViewObject
{
public:
    /// The textures' folder, relative to the shape's.
    static constexpr const char *kTexturePath = "..\\textures\\";

    explicit TSViewObject(const install::Environment &environment);
    ~TSViewObject();
    TSViewObject(const TSViewObject &) = delete;
    TSViewObject &operator=(const TSViewObject &) = delete;

    /// A mark for the owner, not used here.
    bool Selected() const { return m_selected; }
    void SetSelected(bool selected) { m_selected = selected; }

    /// Returns the number of textures of the loaded shape; throws error 6 beyond 16 bits.
    std::int16_t NumTextures() const;
    /// Returns the name of a texture, counted from 1; throws error 9 outside the list.
    std::string Texture(int index) const;
    /// Returns the model's error text after the last LoadShape of an existing file.
    const std::string &LastError() const { return m_lastError; }
    /// Loads a shape with its textures; returns false if that fails. Reports a missing file in a
    /// message box, and leaves any other reason in LastError.
    bool LoadShape(const std::string &shapeFile);
    /// Returns the path of the last shape that was loaded.
    const std::string &ShapeFile() const { return m_shapeFile; }

    /// Loads a shape that is shown together with this one, at a place in this one's space. Returns
    /// the reason if that fails, without a message box, and then adds nothing.
    std::string AddShape(const std::string &shapeFile, const korvat::Transform &place, bool isLoad);
    struct Added
    {
        ShapeModel model;
        std::string file;
        korvat::Transform place;
        bool isLoad = false;
    };
    const std::vector<Added> &AddedShapes() const { return m_added; }
    /// Adds these shapes to the frame, where the object is now, in this level of detail.
    void RenderAdded(bool withLoads, int level = 1);

    /// Sets the radii of the vehicle's wheels, in metres; 0 if they are not known.
    void SetWheels(float radius, float driven)
    {
        m_wheelRadius = radius;
        m_driverRadius = driven;
    }
    float WheelRadius() const { return m_wheelRadius; }
    float DriverRadius() const { return m_driverRadius; }
    /// Gives the object and the shapes added to it their poses, which `poseOf` returns for the
    /// model of a shape and the shape's file.
    using PoseOf = std::function<korvat::PosePtr(const std::shared_ptr<const korvat::Model> &model,
                                                 const std::string &file)>;
    void SetPoses(int level, const PoseOf &poseOf);

    /// Sets which textures the shapes show instead of their own; null for their own.
    void SetChoice(const std::shared_ptr<korvat::TextureChoice> &choice);
    /// Set and return the lights and boxes of the object's vehicle.
    void SetFittings(viewer::Fittings fittings) { m_fittings = std::move(fittings); }
    const viewer::Fittings &Fittings() const { return m_fittings; }

    /// Attaches the shapes to the renderer that draws them, which must outlive the attachment; null
    /// detaches.
    void SetRenderer(korvat::Renderer *renderer);
    ShapeModel &Model() { return m_model; }
    const ShapeModel &Model() const { return m_model; }

    float X() const { return m_x; }
    float Y() const { return m_y; }
    float Z() const { return m_z; }
    float R() const { return m_r; }
    void SetX(float x) { MoveTo(x, m_y, m_z); }
    void SetY(float y) { MoveTo(m_x, y, m_z); }
    void SetZ(float z) { MoveTo(m_x, m_y, z); }
    void SetR(float r) { RotateTo(r); }

    /// Move the shape first and then turn the result about the scene's origin, so that a turn by
    /// 180 degrees takes the shape to the opposite place.
    void MoveBy(float x, float y, float z);
    void MoveTo(float x, float y, float z);
    void MoveAndRotateTo(float x, float y, float z, float r);
    void RotateBy(float r);
    void RotateTo(float r);
    /// Turns the shape about its own origin and then moves it.
    void RotateAndMoveTo(float x, float y, float z, float r);

    /// Switches between the textured and the plain look.
    void Flash();
    /// Restores the textures, whatever the current look.
    void UnFlash();
    bool FlashOn() const { return m_flashOn; }
    /// Stores the setting; false also restores the textures.
    void SetFlashOn(bool on);
    bool Flashed() const { return !m_texturesShown; }

    /// Releases all textures and the device.
    void Destroy();

private:
    void place(float x, float y, float z, float r);
    void applyMoveThenRotate();
    void applyRotateThenMove();

    install::Environment m_environment;
    bool m_selected = false;
    ShapeModel m_model;
    std::vector<Added> m_added;
    std::shared_ptr<korvat::TextureChoice> m_choice;
    viewer::Fittings m_fittings;
    korvat::Renderer *m_renderer = nullptr;
    float m_wheelRadius = 0, m_driverRadius = 0;
    float m_x = 0, m_y = 0, m_z = 0, m_r = 0;
    std::string m_shapeFile, m_lastError;
    std::vector<std::string> m_textures;
    bool m_texturesShown = false;
    bool m_flashOn = false;
};
