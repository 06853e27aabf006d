// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// A rectangle of a made-up shape, with its corners clockwise from the top left, as seen from the
/// front.
struct Panel
{
    std::array<korvat::Vec3, 4> corners;
    std::string image = "side.dds";
    std::string shader = "Tex"; ///< unlit: the screen shows the colours of the texture
    int alphaTest = 0;
    int lightMaterial = -5; ///< neither shiny nor anything else
};

/// Returns a rectangle of this width and height that faces along X (`facing` 1 or -1) or along Z.
Panel SidePanel(float x, float facing, korvat::Vec3 middle, float length, float height);
Panel EndPanel(float z, float facing, korvat::Vec3 middle, float width, float height);

/// Returns the text of a shape file with these panels. Its textures use this filter; "Point" shows
/// single pixels.
std::string ShapeText(const std::vector<Panel> &panels, const std::string &filter = "Point");

using Pixel = std::array<std::uint8_t, 4>; ///< red, green, blue, alpha
/// Returns the bytes of a .dds file with 32 bits per pixel; rows count from the top.
std::string PictureFile(unsigned width, unsigned height,
                        const std::function<Pixel(unsigned x, unsigned y)> &pixel);
/// A texture of one colour.
std::string PictureFile(Pixel colour);

/// Rows of pixels that show an "F", which looks different in a mirror and upside down.
inline constexpr std::array<const char *, 7> kLetter = {"#####", "#....", "#....", "####.",
                                                        "#....", "#....", "#...."};
/// A texture with the letter, white on blue.
std::string LetterFile();
