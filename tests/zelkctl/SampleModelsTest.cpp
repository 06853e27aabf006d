// SPDX-License-Identifier: MIT
#include "SampleFixture.h"
#include "host/Path.h"
#include "samples/Defects.h"

#include <nlohmann/json.hpp>

#include <map>

namespace {

/// Every shape and every texture of the sample installation can be read, saved and drawn, except
/// those that are wrong on purpose: for these the program reports a reason.
class SampleModelsTest : public SampleFixture
{
protected:
    std::string at(const std::string &file) const { return m_folder.At("s/" + file); }
    nlohmann::json facts(const char *command, const std::string &file) const
    {
        const Outcome outcome = run({command, at(file)});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.err, "");
        return nlohmann::json::parse(outcome.out);
    }
    /// Returns the form of a shape's file, judged by its first bytes only.
    std::string formOf(const std::string &file) const
    {
        const std::string bytes = read("s/" + file);
        if (bytes.starts_with("SIMISA@F"))
            return "compressed";
        return bytes.starts_with("SIMISA@@@@@@@@@@JINX0s1b") ? "binary" : "text";
    }
    /// Returns the width and the height of a PNG picture.
    static std::pair<unsigned, unsigned> sizeOf(const std::string &png)
    {
        const auto number = [&png](std::size_t offset) {
            unsigned value = 0;
            for (std::size_t i = offset; i < offset + 4; ++i)
                value = value << 8 | static_cast<unsigned char>(png.at(i));
            return value;
        };
        return {number(16), number(20)};
    }
    Outcome render(const std::string &file) const
    {
        return run(
            {"--msts", m_folder.At("s"), "render", at(file), "--out", "x.png", "--size", "64x40"});
    }
};

/// Farther levels of a shape have fewer triangles.
void expectLevels(const nlohmann::json &levels)
{
    double distance = 0, triangles = 1e9;
    EXPECT_FALSE(levels.empty());
    for (const nlohmann::json &level : levels) {
        EXPECT_GT(level["distance"], distance);
        EXPECT_GT(level["triangles"], 0);
        EXPECT_LT(level["triangles"], triangles);
        distance = level["distance"];
        triangles = level["triangles"];
    }
}

TEST_F(SampleModelsTest, PrintsTheContentOfEveryShape)
{
    std::map<std::string, int> forms;
    for (const std::string &file : files(".s")) {
        SCOPED_TRACE(file);
        const nlohmann::json shape = facts("shape", file);
        EXPECT_EQ(shape["form"], formOf(file));
        ++forms[shape["form"]];
        expectLevels(shape["levels"]);
        EXPECT_EQ(shape["matrices"][0], "MAIN");
        EXPECT_FALSE(shape["images"].empty());
        const nlohmann::json &bounds = shape["bounds"];
        ASSERT_EQ(bounds.size(), 6U);
        for (int axis = 0; axis < 3; ++axis)
            EXPECT_LT(bounds[axis], bounds[axis + 3]);
    }
    EXPECT_EQ(forms.size(), 3U);
}

TEST_F(SampleModelsTest, EveryTextureDecodesToItsSmallestLevel)
{
    for (const std::string &file : files(".ace")) {
        SCOPED_TRACE(file);
        const nlohmann::json picture = facts("texture", file);
        const unsigned width = picture["width"], height = picture["height"];
        const unsigned last = static_cast<unsigned>(picture["levels"]) - 1;
        EXPECT_EQ(run({"texture", at(file), "--out", "x.png"}), (Outcome{0, "", ""}));
        EXPECT_EQ(sizeOf(read("x.png")), (std::pair{width, height}));
        EXPECT_EQ(run({"texture", at(file), "--out", "x.png", "--level", std::to_string(last)}),
                  (Outcome{0, "", ""}));
        EXPECT_EQ(sizeOf(read("x.png")),
                  (std::pair{std::max(width >> last, 1U), std::max(height >> last, 1U)}));
    }
}

class SampleRenderTest : public SampleModelsTest, public testing::WithParamInterface<const char *>
{
protected:
    /// The exit code and the messages on standard error for the planned defects, by file name.
    static const std::map<std::string, std::pair<int, std::vector<std::string>>> &told()
    {
        static const std::map<std::string, std::pair<int, std::vector<std::string>>> all = {
            {"bridge.s", {0, {"Texture bridge.ace is missing"}}},
            {"rs_paint.s", {0, {"Texture rs_paint.ace is missing"}}},
            {"rs_paint.wag", {0, {"Texture rs_paint.ace is missing"}}},
            {"rs_noshape.wag",
             {2, {"rs_noshape.s does not exist!", "rs_noshape.wag: there is nothing to show"}}},
            {"rs_waggon.wag", {2, {"rs_waggon.wag: error 91", "there is no Wagon block"}}},
            {"Light engine.act",
             {2, {"Light engine.act: error 91", "has no block ActivityObjects"}}},
            {"Harbour Transfer.con", {0, {"box_gone.wag does not exist!"}}},
            {"Repair Train.con",
             {0, {"rs_noshape.s does not exist!", "rs_waggon.wag: there is no Wagon block"}}},
        };
        return all;
    }
};

TEST_P(SampleRenderTest, DrawsEveryFileOrReportsWhyNot)
{
    const Outcome trial = render("TRAINS/CONSISTS/Depot Shunter.con");
    if (trial.err.find("cannot draw: ") != std::string::npos)
        GTEST_SKIP() << trial.err;
    for (const std::string &file : files(GetParam())) {
        SCOPED_TRACE(file);
        std::filesystem::remove(host::path::ToDisk(m_folder.At("x.png")));
        const Outcome outcome = render(file);
        const auto defect = told().find(std::string(host::path::FileName(file)));
        const bool planned = defect != told().end();
        EXPECT_EQ(outcome.code, planned ? defect->second.first : 0);
        EXPECT_EQ(outcome.err.empty(), !planned) << outcome.err;
        EXPECT_EQ(m_folder.Exists("x.png"), outcome.code == 0);
        if (outcome.code == 0) {
            EXPECT_EQ(sizeOf(read("x.png")), (std::pair{64U, 40U}));
        }
        if (!planned)
            continue;
        for (const std::string &words : defect->second.second)
            EXPECT_NE(outcome.err.find(words), std::string::npos) << outcome.err;
    }
}

INSTANTIATE_TEST_SUITE_P(Extensions, SampleRenderTest,
                         testing::Values(".s", ".eng", ".wag", ".con", ".act"),
                         [](const auto &row) { return std::string(row.param).substr(1); });

} // namespace
