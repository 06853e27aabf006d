// SPDX-License-Identifier: MIT
// Compares reading a compressed shape and a compressed texture with only inflating the same bytes.
#include "Measure.h"
#include "korvat/formats/ReadAce.h"
#include "korvat/formats/ReadShape.h"
#include "korvat/formats/Texture.h"
#include "korvat/model/Geometry.h"
#include "samples/AceWriter.h"
#include "samples/ShapeWriter.h"

#include <libdeflate.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>

namespace {

constexpr std::size_t kCompressedAt = 16;
constexpr int kRounds = 40;

std::size_t sizeField(const std::string &file)
{
    std::size_t size = 0;
    for (std::size_t i = 12; i-- > 8;)
        size = size << 8 | static_cast<unsigned char>(file[i]);
    return size;
}

/// Allocates its buffer each time, as a reader must.
void inflate(const std::string &file)
{
    const std::size_t size = sizeField(file);
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> with(
        libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    const auto out = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    if (libdeflate_zlib_decompress(with.get(), file.data() + kCompressedAt,
                                   file.size() - kCompressedAt, out.get(), size, nullptr))
        std::abort();
}

/// A hilly grid in millimetres, with shared points like those of a model.
std::string shapeFile()
{
    constexpr std::uint32_t kSide = 150;
    samples::ShapeModel model = samples::SmallestShape({"a.ace"});
    samples::ShapePart &part = model.levels[0].parts[0];
    model.points.clear();
    model.normals.clear();
    model.uvs.clear();
    part.corners.clear();
    part.indices.clear();
    const auto rounded = [](float value) { return std::round(value * 1000) / 1000; };
    for (std::uint32_t i = 0; i < kSide * kSide; ++i) {
        const std::uint32_t row = i / kSide;
        const auto x = static_cast<float>(i % kSide), z = static_cast<float>(row);
        const float slope = std::sin(x / 7) * std::cos(z / 5);
        model.points.push_back({x / 10, rounded(slope), z / 10});
        model.normals.push_back({rounded(slope), rounded(1 - slope * slope), 0});
        model.uvs.push_back({x / kSide, z / kSide});
        part.corners.push_back({i, i, i});
        if (i % kSide && i >= kSide)
            for (const std::uint32_t corner : {i, i - 1, i - kSide})
                part.indices.push_back(corner);
    }
    return ShapeBytes(model, samples::ShapeForm::Compressed);
}

std::string textureFile()
{
    constexpr int kSide = 1024;
    std::mt19937 random(1);
    samples::Picture picture{kSide, kSide, {}};
    for (int i = 0; i < kSide * kSide; ++i) {
        const auto noise = static_cast<unsigned>(random() % 12);
        const auto part = [&](int value) {
            return static_cast<std::uint8_t>((static_cast<unsigned>(value) + noise) % 256);
        };
        picture.pixels.push_back({part(i / 4096), part(i % kSide / 5), part(90), 255});
    }
    return AceBytes(picture, {samples::AceAlpha::None, true, true, true});
}

} // namespace

int main()
{
    const std::string shape = shapeFile(), texture = textureFile();
    if (korvat::ReadShape(shape).error || korvat::ReadAce(texture).error)
        return 2;
    std::printf("shape: %zu bytes, inflated %zu; texture: %zu bytes, inflated %zu\n", shape.size(),
                sizeField(shape), texture.size(), sizeField(texture));
    bench::PrintTable(
        {bench::Compare(
             "read compressed shape", [&shape] { korvat::ReadShape(shape); }, "inflate it",
             [&shape] { inflate(shape); }, kRounds),
         bench::Compare(
             "read compressed DXT1 1024x1024", [&texture] { korvat::ReadAce(texture); },
             "inflate it", [&texture] { inflate(texture); }, kRounds)});
    return 0;
}
