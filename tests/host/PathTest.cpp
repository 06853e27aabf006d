// SPDX-License-Identifier: MIT
#include "host/Path.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace path = host::path;

namespace {

/// Converts a path written with "/" to the system's separators.
std::string own(std::string text)
{
    std::replace(text.begin(), text.end(), '/', path::kSeparator);
    return text;
}

TEST(PathTest, JoinsPaths)
{
    const char *const rows[][3] = {
        {"/msts", "Trains\\Consists", "/msts/Trains/Consists"},
        {"/msts", "\\Trains", "/msts/Trains"},
        {"/msts/", "Trains", "/msts/Trains"},
        {"a\\b", "..\\c.s", "a/b/../c.s"},
        {"", "\\Trains", "/Trains"},
        {"/", "x", "/x"},
        {"/msts", "", "/msts/"},
    };
    for (const auto &[folder, relative, expected] : rows)
        EXPECT_EQ(path::Join(folder, relative), own(expected)) << folder << " | " << relative;
    EXPECT_EQ(path::Join("a\\", "\\x", path::Leading::Kept), own("a//x"));
}

TEST(PathTest, SplitsPathsIntoParts)
{
    struct Row
    {
        const char *path, *name, *folder, *extension, *base;
    };
    const Row rows[] = {
        {"/a/B.Con", "B.Con", "/a/", "con", "B"},
        {"a\\b.c\\D", "D", "a\\b.c\\", "c\\d", "D"},
        {"x.tar.GZ", "x.tar.GZ", "", "gz", "x.tar"},
        {"NONE", "NONE", "", "none", "NONE"},
        {"a/b\\", "", "a/b\\", "a/b\\", ""},
        {"Ä.ÄÖ", "Ä.ÄÖ", "", "äö", "Ä"},
        {"", "", "", "", ""},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(path::FileName(row.path), row.name) << row.path;
        EXPECT_EQ(path::FolderWithSeparator(row.path), row.folder) << row.path;
        EXPECT_EQ(path::Extension(row.path), row.extension) << row.path;
        EXPECT_EQ(path::BaseName(row.path), row.base) << row.path;
    }
}

TEST(PathTest, NormalisesPaths)
{
    const char *const rows[][2] = {
        {"/a\\b//c/", "/a/b/c"},
        {"/a/./b/../c", "/a/c"},
        {"/../../a", "/a"},
        {"..\\a\\..\\..\\b", "../../b"},
        {"a/..", ""},
        {"/", "/"},
        {"", ""},
        {"/a/..", "/"},
        {"/a/...b/..c", "/a/...b/..c"},
    };
    for (const auto &[given, expected] : rows)
        EXPECT_EQ(path::Normalise(given), own(expected)) << given;
}

TEST(PathTest, DiskTextSurvivesARoundTrip)
{
    for (const char *const text : {"/a b/é.con", "\\x/日本 🚂.eng", "rel"})
        EXPECT_EQ(path::FromDisk(path::ToDisk(text)), text);
}

} // namespace
