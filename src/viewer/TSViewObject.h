// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/ShapeModel.h"
#include "viewer/Services.h"

#include <cstdint>
#include <string>
#include <vector>

/// One shape in a scene: its model, where it stands and which way it faces, and whether it shows
/// its textures or, flashed, none. It draws nothing itself. Angles are in radians, places in
/// metres; a place that is no finite number is error 6.
///
/// Creation and end leave a line each in the trace log: "> tsviewobject " and "< tsviewobject ",
/// followed by the object's address as a decimal number.
class TSViewObject
{
public:
    explicit TSViewObject(const viewer::Services &services);
    ~TSViewObject();
    TSViewObject(const TSViewObject &) = delete;
    TSViewObject &operator=(const TSViewObject &) = delete;

    /// A mark for the owner; nothing here reads it.
    bool Selected() const { return m_selected; }
    void SetSelected(bool selected) { m_selected = selected; }

    /// Number of textures of the loaded shape; error 6 beyond 16 bits.
    std::int16_t NumTextures() const;
    /// Name of a texture, counted from 1; error 9 outside the list.
    std::string Texture(int index) const;
    /// The model's error text after the last LoadShape that got as far as the model.
    const std::string &LastError() const { return m_lastError; }
    /// Loads a shape with its textures. False when it could not be loaded; a missing file is told
    /// in a message box, any other reason is left in LastError.
    bool LoadShape(const std::string &shapeFile);

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

    /// These move the shape first and then turn the whole about the scene's origin, so that a turn
    /// by 180 degrees brings a shape to the opposite place.
    void MoveBy(float x, float y, float z);
    void MoveTo(float x, float y, float z);
    void MoveAndRotateTo(float x, float y, float z, float r);
    void RotateBy(float r);
    void RotateTo(float r);
    /// This one turns the shape about its own origin and then moves it.
    void RotateAndMoveTo(float x, float y, float z, float r);

    /// Changes between the textured and the plain look.
    void Flash();
    /// Gives the textures back, whatever the look is now.
    void UnFlash();
    bool FlashOn() const { return m_flashOn; }
    /// Remembers the wish; false gives the textures back as well.
    void SetFlashOn(bool on);
    bool Flashed() const { return !m_texturesShown; }

    /// Lets go of all textures and of the device.
    void Destroy();

private:
    void place(float x, float y, float z, float r);
    void applyMoveThenRotate();
    void applyRotateThenMove();

    viewer::Services m_services;
    bool m_selected = false;
    ShapeModel m_model;
    float m_x = 0, m_y = 0, m_z = 0, m_r = 0;
    std::string m_lastError;
    std::vector<std::string> m_textures;
    bool m_texturesShown = false;
    bool m_flashOn = false;
};
