// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// A rectangle of a made-up shape, seen from in front: its corners from the top left one clockwise.
struct Panel
{
    std::array<korvat::Vec3, 4> corners;
    std::string image = "side.dds";
    std::string shader = "Tex"; ///< not lit: the colours of the picture are those on the screen
    int alphaTest = 0;
};

/// A rectangle of this width and height that faces along X (`facing` 1 or -1) or along Z.
Panel SidePanel(float x, float facing, korvat::Vec3 middle, float length, float height);
Panel EndPanel(float z, float facing, korvat::Vec3 middle, float width, float height);

/// The text of a shape file with these panels. Its textures have this filter; "Point" shows single
/// pixels.
std::string ShapeText(const std::vector<Panel> &panels, const std::string &filter = "Point");

using Pixel = std::array<std::uint8_t, 4>; ///< red, green, blue, alpha
/// The bytes of a picture file (.dds, 32 bits a pixel); rows count from the top.
std::string PictureFile(unsigned width, unsigned height,
                        const std::function<Pixel(unsigned x, unsigned y)> &pixel);
/// One colour all over.
std::string PictureFile(Pixel colour);

/// "F": rows of a letter that reads differently in a mirror and upside down.
inline constexpr std::array<const char *, 7> kLetter = {"#####", "#....", "#....", "####.",
                                                        "#....", "#....", "#...."};
/// A picture of the letter, white on blue.
std::string LetterFile();
