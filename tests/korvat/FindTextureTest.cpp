// SPDX-License-Identifier: MIT
#include "korvat/model/FindTexture.h"

#include "host/GameFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(FindTextureTest, LooksInBothFoldersForBothForms)
{
    support::TempFolder folder;
    for (const char *file : {"Shapes/own.ace", "Textures/own.ace", "TEXTURES/Route.ACE",
                             "Shapes/only.DDS", "Textures/only.ace", "Textures/reverse.ace",
                             "Textures/both.ace", "Textures/both.dds", "Shapes/Night/x.ace"})
        folder.Write(file);
    host::GameFiles files;
    const std::string shape = folder.At("Shapes/a.s");
    const std::pair<const char *, const char *> rows[] = {
        {"own.ace", "Shapes/own.ace"},
        {"OWN.ACE", "Shapes/own.ace"},
        {"route.ace", "TEXTURES/Route.ACE"},
        {"only.ace", "Shapes/only.DDS"},
        {"reverse.dds", "Textures/reverse.ace"},
        {"both.dds", "Textures/both.dds"},
        {"both.ace", "Textures/both.ace"},
        {"night\\X.ace", "Shapes/Night/x.ace"},
        {"missing.ace", ""},
        {"own", ""},
        {"own.png", ""},
        {"", ""},
        {"..", ""},
    };
    for (const auto &[image, expected] : rows) {
        SCOPED_TRACE(image);
        const auto found = korvat::FindTexture(files, shape, "..\\textures\\", image);
        ASSERT_EQ(found.has_value(), *expected != '\0');
        if (found) {
            EXPECT_TRUE(std::filesystem::equivalent(*files.FindFile(folder.At(expected)),
                                                    *files.FindFile(*found)))
                << *found;
        }
    }
    EXPECT_FALSE(korvat::FindTexture(files, shape, "", "route.ace"));
}

} // namespace
