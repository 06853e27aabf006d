// SPDX-License-Identifier: MIT
#include "korvat/model/ModelLibrary.h"

#include "Build.h"
#include "TestShape.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "samples/AceWriter.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <thread>

using namespace korvat;

namespace {

class ModelLibraryTest : public testing::Test
{
protected:
    ModelLibraryTest()
    {
        shape = game.Write("Cars/box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 4, 2)}));
        game.Write("Cars/side.dds", LetterFile());
        game.Write("textures/roof.dds", PictureFile({1, 2, 3, 255}));
    }
    LoadedTexture texture(const std::string &name)
    {
        return library.LoadTexture(game.At("Cars/"), "..\\textures\\", name);
    }

    support::TempFolder game;
    host::GameFiles files;
    ModelLibrary library{files};
    std::string shape;
};

} // namespace

TEST_F(ModelLibraryTest, SharesModelsInUseUntilTheirFileChanges)
{
    const LoadedModel first = library.LoadModel(shape);
    ASSERT_EQ(first.error, "");
    EXPECT_EQ(first.model->textures, std::vector<std::string>{"side.dds"});
    EXPECT_EQ(library.LoadModel(game.At("cars/BOX.S")).model, first.model);
    const TexturePtr side = texture("side.dds").texture;
    EXPECT_EQ(texture("SIDE.ACE").texture, side) << "a .dds replaces a missing .ace";
    EXPECT_NE(texture("roof.dds").texture, ModelLibrary::Checker()) << "in the texture path";

    game.Write("Cars/box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 6, 2)}));
    namespace fs = std::filesystem;
    fs::last_write_time(fs::path(shape),
                        fs::last_write_time(fs::path(shape)) + std::chrono::hours(1));
    const LoadedModel second = library.LoadModel(shape);
    EXPECT_NE(second.model, first.model);
    EXPECT_FLOAT_EQ(second.model->box.most.z, 3);
}

TEST_F(ModelLibraryTest, ThreadsThatNeedOneFileGetOneModel)
{
    // Large enough that the threads meet while it is read.
    const std::string large =
        game.Write("Cars/large.s", ShapeText(std::vector(5000, SidePanel(1, 1, {0, 2, 0}, 4, 2))));
    constexpr std::size_t kThreads = 4;
    std::promise<void> start;
    const std::shared_future<void> started = start.get_future().share();
    std::vector<LoadedModel> models(kThreads);
    std::vector<LoadedTexture> textures(kThreads);
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < kThreads; ++i)
            threads.emplace_back([&, i] {
                started.wait();
                models[i] = library.LoadModel(large);
                textures[i] = texture("roof.dds");
            });
        start.set_value();
    }
    ASSERT_EQ(models[0].error, "");
    for (std::size_t i = 1; i < kThreads; ++i) {
        EXPECT_EQ(models[i].model, models[0].model);
        EXPECT_EQ(textures[i].texture, textures[0].texture);
    }
}

TEST_F(ModelLibraryTest, CompressedTexturesHaveAllLevels)
{
    samples::Picture picture{64, 64, std::vector<samples::Colour>(64 * 64, {200, 40, 40, 255})};
    game.Write("Cars/one.ace", AceBytes(picture, {.dxt1 = true, .compressed = true}));
    game.Write("Cars/all.ace", AceBytes(picture, {.mipmaps = true, .dxt1 = true}));
    std::string header = "DDS " + U32s({124, 0x1007, 64, 64, 0, 0, 1});
    header.resize(76);
    header += U32s({32, 4}) + "DXT5";
    header.resize(128);
    game.Write("Cars/one.dds", header + std::string(64 * 64, '\x55'));
    EXPECT_EQ(texture("one.ace").texture->UniformLevels(), 7u);
    EXPECT_EQ(texture("one.dds").texture->UniformLevels(), 7u);
    EXPECT_EQ(texture("all.ace").texture->levels.size(), 7u) << "as they are in the file";
    EXPECT_EQ(texture("all.ace").texture->UniformLevels(), 5u);
}

TEST_F(ModelLibraryTest, ReportsUnreadableFilesByName)
{
    const std::string broken =
        game.Write("Cars/broken.s", "SIMISA@@@@@@@@@@JINX0s1t______\n\nx ( )");
    EXPECT_EQ(library.LoadModel(broken).error.rfind(broken + ": ", 0), 0u)
        << library.LoadModel(broken).error;
    EXPECT_EQ(library.LoadModel(broken).model, nullptr);
    EXPECT_NE(library.LoadModel(game.At("Cars/gone.s")).error, "");
    game.Write("Cars/bad.dds", "DDS nothing");
    const LoadedTexture bad = texture("bad.dds"), gone = texture("gone.ace");
    EXPECT_EQ(bad.texture, ModelLibrary::Checker());
    EXPECT_EQ(
        bad.problem.rfind("Texture " + host::path::Normalise(game.At("Cars/bad.dds")) + ": ", 0),
        0u)
        << bad.problem;
    EXPECT_EQ(gone.texture, ModelLibrary::Checker());
    EXPECT_EQ(gone.problem, "Texture gone.ace is missing");
}
