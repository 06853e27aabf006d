// SPDX-License-Identifier: MIT
#include "korvat/draw/Sky.h"

#include "korvat/draw/Noise.h"

#include <cmath>
#include <vector>

namespace korvat {
namespace {

constexpr unsigned kSide = 512, kCoarsest = 128, kFinest = 4; ///< pixels
constexpr float kThinnest = 0.53f, kThickest = 0.72f;         ///< densities of clouds
constexpr unsigned kDepth = 14; ///< pixels in which a cloud hides the sun from itself

float eased(float t)
{
    t = std::clamp(t, 0.0f, 1.0f);
    return t * t * (3 - 2 * t);
}

/// Returns noise of several sizes for each pixel.
std::vector<float> densities()
{
    std::vector<float> result(std::size_t{kSide} * kSide);
    float weight = 0.5f;
    for (unsigned cell = kCoarsest; cell >= kFinest; cell /= 2) {
        const SmoothNoise noise(cell, kSide, 20 + cell);
        for (unsigned y = 0; y < kSide; ++y)
            for (unsigned x = 0; x < kSide; ++x)
                result[std::size_t{y} * kSide + x] += weight * noise.At(x, y);
        weight /= 2;
    }
    return result;
}

} // namespace

TexturePtr PaintClouds()
{
    const std::vector<float> density = densities();
    const auto at = [&density](unsigned x, unsigned y) {
        return density[std::size_t{y % kSide} * kSide + x % kSide];
    };
    return PaintTexture(kSide, 8, [&at](unsigned x, unsigned y) {
        const float here = at(x, y);
        // Darker where the cloud becomes thicker towards the sun.
        const float towards = at(x + kDepth, y + kDepth);
        const float light = 0.97f - 0.45f * std::max(0.0f, towards - 0.5f);
        const float cover = eased((here - kThinnest) / (kThickest - kThinnest));
        return Tint{light, light, std::min(1.0f, light + 0.02f), 0.92f * cover};
    });
}

} // namespace korvat
