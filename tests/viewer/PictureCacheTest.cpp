// SPDX-License-Identifier: MIT
#include "viewer/PictureCache.h"

#include "Scene.h"
#include "host/FilesUsed.h"

#include <chrono>
#include <filesystem>
#include <thread>

namespace {

/// A folder for pictures of the vehicle "box.wag".
class PictureCacheTest : public SceneTest
{
protected:
    PictureCacheTest() { game.Write("box.wag", "Wagon"); }

    /// Returns a record of the vehicle's file, once it is old enough for one.
    std::string record()
    {
        const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (std::chrono::steady_clock::now() < patience) {
            const host::FilesUsed used;
            files.FileExists(vehicle);
            if (used.IsSettled())
                return used.Record();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        ADD_FAILURE() << "the file stays new";
        return {};
    }
    viewer::PictureCache::Subject subject(int width = 64) const
    {
        return {vehicle, {}, false, width, 32};
    }
    std::string find(const viewer::PictureCache &cache, int width = 64)
    {
        return cache.Find(files, subject(width)).value_or("none");
    }
    /// Returns the only file in the folder.
    std::string keptFile() const { return "kept/" + game.Names("kept").at(0); }

    const std::string vehicle = game.At("box.wag"), folder = game.At("kept");
};

TEST_F(PictureCacheTest, ReturnsAPictureOfTheSameSizeWhileItsFilesStay)
{
    viewer::PictureCache cache(folder);
    EXPECT_EQ(find(cache), "none");
    EXPECT_FALSE(game.Exists("kept"));
    cache.Keep(subject(), record(), "PNG");
    EXPECT_EQ(find(cache), "PNG");
    EXPECT_EQ(find(viewer::PictureCache(folder)), "PNG") << "by the next run";
    EXPECT_EQ(find(cache, 65), "none");
    viewer::PictureCache::Subject other = subject();
    other.reading.profile = content::Profile::OpenRails;
    EXPECT_FALSE(cache.Find(files, other)) << "which may add other loads";
    game.Write("box.wag", "Wagon 2");
    EXPECT_EQ(find(cache), "none");
    cache.Keep(subject(), record(), "new");
    EXPECT_EQ(find(cache), "new");
    EXPECT_EQ(game.Names("kept").size(), 1u);
    cache.Keep(subject(), "", "without a record");
    EXPECT_EQ(find(cache), "new");
}

TEST_F(PictureCacheTest, IgnoresAndReplacesDamagedFiles)
{
    viewer::PictureCache cache(folder);
    const std::string used = record();
    cache.Keep(subject(), used, "PNG of a box");
    const std::string whole = game.Read(keptFile());
    for (std::size_t length = 0; length < whole.size(); ++length) {
        game.Write(keptFile(), whole.substr(0, length));
        ASSERT_EQ(find(cache), "none") << length;
    }
    for (const std::string &foreign : {std::string("\x89PNG"), whole + "x", std::string()}) {
        game.Write(keptFile(), foreign);
        EXPECT_EQ(find(cache), "none");
    }
    std::string other = whole; // damaged, with the right length
    other[other.find("PNG of")] = 'p';
    game.Write(keptFile(), other);
    EXPECT_EQ(find(cache), "none");
    cache.Keep(subject(), used, "again");
    EXPECT_EQ(find(cache), "again");
}

TEST_F(PictureCacheTest, GivesUpAFolderThatCannotBeWritten)
{
    game.Write("kept", "a file in place of the folder");
    viewer::PictureCache cache(folder);
    const std::string used = record();
    traceLines(); // to here
    cache.Keep(subject(), used, "PNG");
    cache.Keep(subject(32), used, "PNG");
    EXPECT_EQ(find(cache), "none");
    EXPECT_EQ(game.Read("kept"), "a file in place of the folder");
    const std::string log = traceLines();
    const std::string remark = "Pictures of vehicles are not kept: ";
    EXPECT_NE(log.find(remark), log.npos) << log;
    EXPECT_EQ(log.find(remark), log.rfind(remark)) << log;
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(PictureCacheTest, RemovesTheOldestAboveItsLimit)
{
    const std::string used = record(), picture(1000, 'x');
    viewer::PictureCache cache(folder, 12'000);
    game.MakeFolder("kept");
    game.Write("kept/mine.txt", std::string(20'000, 'x'));
    for (int width = 1; width <= 30; ++width) {
        cache.Keep(subject(width), used, picture);
        const std::string newest = find(cache, width);
        ASSERT_EQ(newest, picture);
        for (const auto &entry : std::filesystem::directory_iterator(folder)) // an hour passes
            std::filesystem::last_write_time(entry, std::filesystem::last_write_time(entry) -
                                                        std::chrono::hours(1));
    }
    EXPECT_EQ(find(cache, 1), "none");
    EXPECT_EQ(find(cache, 29), picture);
    const std::size_t count = game.Names("kept").size();
    EXPECT_GT(count, 5u);
    EXPECT_LT(count, 13u);
    EXPECT_TRUE(game.Exists("kept/mine.txt"));
}

} // namespace
