// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"
#include "samples/Stock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <set>

namespace {

using samples::Design;
using samples::Dot;
using samples::PaintedModel;
using samples::ShapeLevel;
using samples::ShapeModel;
using samples::ShapePart;
using samples::Vec3;

samples::Plan plan(float length, bool alone = false)
{
    samples::Plan wanted{.length = length,
                         .base = {40, 60, 120, 255},
                         .trim = {230, 220, 190, 255},
                         .initials = "AVR",
                         .number = "12",
                         .alone = alone,
                         .images = {"own.ace"}};
    if (!alone)
        wanted.images.insert(wanted.images.end(), {samples::kGearFile, samples::kGlassFile});
    return wanted;
}

struct Row
{
    const char *name;
    Design design;
    float length;
    std::size_t axles;
    bool glass;
};

constexpr Row kRows[] = {
    {"box car", Design::BoxCar, 12.4F, 4, false},
    {"ice van", Design::IceVan, 11.8F, 4, false},
    {"goods van", Design::GoodsVan, 9.1F, 2, false},
    {"caboose", Design::Caboose, 10.4F, 4, true},
    {"tank car", Design::TankCar, 12.9F, 4, false},
    {"flat car", Design::FlatCar, 18.9F, 4, false},
    {"loaded flat", Design::PipeFlat, 18.9F, 4, false},
    {"hopper", Design::Hopper, 11.5F, 4, false},
    {"coach", Design::Coach, 23, 4, true},
    {"diner", Design::DiningCar, 23, 4, true},
    {"compartments", Design::CompartmentCoach, 13.9F, 4, true},
    {"brake coach", Design::BrakeCoach, 14.3F, 4, true},
    {"motor coach", Design::MotorCoach, 20.1F, 4, true},
    {"trailer", Design::Trailer, 19.8F, 4, true},
    {"railcar", Design::Railcar, 22.5F, 4, true},
    {"diesel", Design::HoodDiesel, 17.2F, 6, true},
    {"electric", Design::ElectricEngine, 18.6F, 6, true},
    {"express", Design::ExpressSteam, 13.1F, 6, true},
    {"tank engine", Design::TankSteam, 9.4F, 3, true},
    {"tender", Design::Tender, 7.9F, 3, false},
};

void forEach(const std::function<void(const Row &, const PaintedModel &)> &check)
{
    for (const Row &row : kRows) {
        SCOPED_TRACE(row.name);
        check(row, samples::BuildVehicle(row.design, plan(row.length)));
    }
}

std::size_t trianglesOf(const ShapeLevel &level)
{
    std::size_t indices = 0;
    for (const ShapePart &part : level.parts)
        indices += part.indices.size();
    return indices / 3;
}

struct Triangle
{
    Vec3 points[3], normals[3];
    samples::Uv uvs[3];
    Vec3 Across() const { return Cross(points[1] - points[0], points[2] - points[0]); }
};

std::vector<Triangle> trianglesOf(const ShapeModel &model, const ShapePart &part)
{
    std::vector<Triangle> all;
    for (std::size_t i = 0; i < part.indices.size(); i += 3) {
        Triangle one;
        for (std::size_t k = 0; k < 3; ++k) {
            const samples::Corner &corner = part.corners.at(part.indices[i + k]);
            one.points[k] = model.points.at(corner.point);
            one.normals[k] = model.normals.at(corner.normal);
            one.uvs[k] = model.uvs.at(corner.uv);
        }
        all.push_back(one);
    }
    return all;
}

TEST(VehiclesTest, StandsOnTheRailsWithTheGivenLength)
{
    forEach([](const Row &row, const PaintedModel &built) {
        EXPECT_NEAR(built.high.z, row.length / 2, 0.02F);
        EXPECT_GT(built.low.z, -row.length / 2 - 0.02F);
        EXPECT_LT(built.low.z, -row.length / 2 + 0.6F);
        EXPECT_NEAR(built.low.y, -0.03F, 0.01F); // the flange
        EXPECT_GT(built.high.y, 1.2F);
        EXPECT_LT(built.high.y, 5.4F);
        EXPECT_NEAR(built.low.x, -built.high.x, 0.05F);
        EXPECT_LT(built.high.x, 1.6F);
    });
}

TEST(VehiclesTest, TrianglesFaceAlongTheirNormals)
{
    forEach([](const Row &, const PaintedModel &built) {
        for (const ShapeLevel &level : built.model.levels)
            for (const ShapePart &part : level.parts)
                for (const Triangle &t : trianglesOf(built.model, part)) {
                    const Vec3 across = t.Across();
                    ASSERT_GT(Dot(across, t.normals[0] + t.normals[1] + t.normals[2]), 0)
                        << part.name;
                    for (const Vec3 &normal : t.normals)
                        ASSERT_NEAR(Dot(normal, normal), 1, 0.02F) << part.name;
                    for (const samples::Uv &uv : t.uvs)
                        ASSERT_TRUE(uv.u >= 0 && uv.u <= 1 && uv.v >= 0 && uv.v <= 1) << part.name;
                }
    });
}

/// Returns the height of a triangle above a place, or nothing if it does not cover the place.
std::optional<float> heightAt(const Triangle &t, float x, float z)
{
    const Vec3 &a = t.points[0], &b = t.points[1], &c = t.points[2];
    const float whole = (b.x - a.x) * (c.z - a.z) - (c.x - a.x) * (b.z - a.z);
    if (std::abs(whole) < 1e-5F)
        return std::nullopt;
    const float u = ((x - a.x) * (c.z - a.z) - (c.x - a.x) * (z - a.z)) / whole;
    const float v = ((b.x - a.x) * (z - a.z) - (x - a.x) * (b.z - a.z)) / whole;
    constexpr float seam = 1e-3F; // places on an edge belong to both triangles
    if (u < -seam || v < -seam || u + v > 1 + seam)
        return std::nullopt;
    return a.y + u * (b.y - a.y) + v * (c.y - a.y);
}

TEST(VehiclesTest, NoFaceIsInsideOutFromAbove)
{
    forEach([](const Row &row, const PaintedModel &built) {
        std::vector<Triangle> body;
        for (const ShapePart &part : built.model.levels[0].parts)
            if (part.matrix == 0)
                for (const Triangle &t : trianglesOf(built.model, part))
                    body.push_back(t);
        for (float z = -row.length / 2; z < row.length / 2; z += 0.11F)
            for (float x = -1.5F; x < 1.5F; x += 0.13F) {
                float up = -100, down = -100;
                for (const Triangle &t : body)
                    if (const auto height = heightAt(t, x, z)) {
                        float &highest = t.Across().y > 0 ? up : down;
                        highest = std::max(highest, *height);
                    }
                ASSERT_LE(down, up + 0.03F) << "at x " << x << ", z " << z;
            }
    });
}

/// Seen from either side, u grows to the right and v downwards on every face with a picture.
TEST(VehiclesTest, LetteringReadsOnBothSides)
{
    forEach([](const Row &, const PaintedModel &built) {
        int faces[2] = {0, 0};
        for (const ShapePart &part : built.model.levels.front().parts) {
            if (part.image != 0 || part.shader != "TexDiff")
                continue;
            for (const Triangle &t : trianglesOf(built.model, part)) {
                const float x = t.normals[0].x;
                if (std::abs(x) < 0.999F || std::sqrt(Dot(t.Across(), t.Across())) < 0.5F)
                    continue;
                // The determinant of (u, v) over (right, up): its sign shows whether the texture is
                // mirrored.
                const auto right = [&](int k) { return (t.points[k] - t.points[0]).z * x; };
                const auto up = [&](int k) { return (t.points[k] - t.points[0]).y; };
                const auto u = [&](int k) { return t.uvs[k].u - t.uvs[0].u; };
                const auto v = [&](int k) { return t.uvs[k].v - t.uvs[0].v; };
                const float area = right(1) * up(2) - right(2) * up(1);
                if (std::abs(u(1) * v(2) - u(2) * v(1)) < 0.004F)
                    continue; // a swatch of plain colour
                EXPECT_LT((u(1) * v(2) - u(2) * v(1)) * area, 0) << part.name;
                EXPECT_GT((u(1) * up(2) - u(2) * up(1)) * area, -1e-7F) << part.name;
                ++faces[x > 0 ? 0 : 1];
            }
        }
        EXPECT_EQ(faces[0], faces[1]);
        EXPECT_GT(faces[0], 0);
    });
}

TEST(VehiclesTest, LevelsGetSimplerWithDistance)
{
    forEach([](const Row &row, const PaintedModel &built) {
        const auto &levels = built.model.levels;
        ASSERT_EQ(levels.size(), 3U);
        for (std::size_t i = 1; i < levels.size(); ++i) {
            EXPECT_GT(levels[i].distance, levels[i - 1].distance);
            EXPECT_LT(trianglesOf(levels[i]), trianglesOf(levels[i - 1]));
        }
        EXPECT_LT(trianglesOf(levels.front()), 6000U);
        const auto &parts = levels.front().parts;
        const auto blends = [](const ShapePart &part) {
            return part.shader == "BlendATexDiff" && !part.alphaTest;
        };
        EXPECT_EQ(std::any_of(parts.begin(), parts.end(), blends), row.glass);
        // Parts behind glass must be drawn before it.
        EXPECT_EQ(blends(parts.back()), row.glass);
        std::set<std::uint32_t> used;
        for (const ShapePart &part : parts)
            used.insert(part.matrix);
        EXPECT_EQ(used.size(), built.model.matrices.size()) << "a node without parts";
    });
}

TEST(VehiclesTest, EveryAxleRollsForwardsOnce)
{
    forEach([](const Row &row, const PaintedModel &built) {
        std::size_t axles = 0;
        for (const samples::ShapeMatrix &matrix : built.model.matrices) {
            EXPECT_EQ(matrix.label.starts_with("WHEELS"), !matrix.turn.empty()) << matrix.label;
            if (matrix.turn.empty())
                continue;
            ++axles;
            EXPECT_EQ(matrix.turn.front().rotation, (std::array<float, 4>{0, 0, 0, 1}));
            // A quarter turn, conjugated, so that the top moves to +Z.
            EXPECT_NEAR(matrix.turn[1].rotation[0], -std::sqrt(0.5F), 1e-5F);
            EXPECT_NEAR(matrix.turn[1].rotation[3], std::sqrt(0.5F), 1e-5F);
            EXPECT_EQ(matrix.turn.back().frame, built.model.frames);
        }
        EXPECT_EQ(axles, row.axles);
    });
}

TEST(VehiclesTest, RepairVehiclesUseOnlyTheirOwnTexture)
{
    for (const Design design : {Design::BoxCar, Design::HoodDiesel}) {
        const PaintedModel built = samples::BuildVehicle(design, plan(15, true));
        for (const ShapeLevel &level : built.model.levels)
            for (const ShapePart &part : level.parts)
                EXPECT_TRUE(part.image == 0 && !part.alphaTest && part.shader == "TexDiff")
                    << part.name;
    }
}

/// If a vehicle's own texture has alpha, its transparent parts use that texture.
TEST(VehiclesTest, TransparentPartsUseTheOwnAlpha)
{
    const struct
    {
        Design design;
        samples::AceAlpha alpha;
        bool tested;
    } rows[] = {{Design::Caboose, samples::AceAlpha::Mask, true},
                {Design::Coach, samples::AceAlpha::Full, false}};
    for (const auto &row : rows) {
        samples::Plan wanted = plan(14);
        wanted.alpha = row.alpha;
        const PaintedModel built = samples::BuildVehicle(row.design, wanted);
        const auto &parts = built.model.levels.front().parts;
        EXPECT_TRUE(std::any_of(parts.begin(), parts.end(), [&](const ShapePart &part) {
            return part.image == 0 && part.shader == "BlendATexDiff" &&
                   part.alphaTest == row.tested;
        }));
        EXPECT_TRUE(std::any_of(built.picture.pixels.begin(), built.picture.pixels.end(),
                                [](const samples::Colour &c) { return c.alpha < 128; }));
    }
}

/// Checks for every row of the stock table that the size in the vehicle's file equals that of its
/// model.
TEST(VehiclesTest, StockFilesHaveTheSizesOfTheirShapes)
{
    EXPECT_NE(samples::StockText(samples::FindVehicle("box_501"), {2.9F, 4.1F})
                  .find("Size ( 2.9m 4.1m 12.4m )"),
              std::string::npos);
    for (const samples::SampleFile &file : samples::StockFiles()) {
        if (file.path.ends_with("avr_hopper_11.sd")) {
            EXPECT_NE(file.bytes.find(std::string("5\0.\0007\0005\0", 8)), std::string::npos);
        }
    }
}

} // namespace
