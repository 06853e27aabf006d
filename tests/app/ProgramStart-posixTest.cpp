// SPDX-License-Identifier: MIT
#include "app/ProgramStart.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "support/Environment.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

class ProgramStartTest : public testing::Test
{
protected:
    app::ProgramStart start(const std::string &path)
    {
        return app::StartOf(files, folder.At(path), {"-runeditor"});
    }
    void installWine(const char *name)
    {
        const std::string wine = folder.Write(std::string("bin/") + name);
        fs::permissions(wine, fs::perms::owner_all);
    }

    support::TempFolder folder;
    support::ScopedVariable searched{"PATH",
                                     "relative::" + folder.At("none") + ':' + folder.At("bin")};
    host::GameFiles files;
};

} // namespace

TEST_F(ProgramStartTest, WineRunsProgramsInTheirOwnPrefix)
{
    installWine("wine-stable");
    folder.MakeFolder("p/dosdevices");
    folder.Write("p/drive_c/MSTS/Train.EXE");
    folder.Write("copy/train.exe");
    fs::create_directory_symlink(folder.At("p/drive_c/MSTS"), folder.At("link"));
    const struct
    {
        const char *path, *found, *prefix;
    } rows[] = {{"p/drive_c/msts/train.exe", "p/drive_c/MSTS/Train.EXE", "p"},
                {"link/train.exe", "link/Train.EXE", "p"},
                {"copy/train.exe", "copy/train.exe", ""}};
    for (const auto &row : rows) {
        const app::ProgramStart how = start(row.path);
        const std::string found = folder.At(row.found);
        EXPECT_EQ(how.program, folder.At("bin/wine-stable"));
        EXPECT_EQ(how.arguments, (std::vector<std::string>{found, "-runeditor"}));
        EXPECT_EQ(how.folder, fs::path(found).parent_path().string());
        EXPECT_EQ(how.winePrefix, *row.prefix ? folder.At(row.prefix) : "") << row.path;
    }
}

TEST_F(ProgramStartTest, MissingWineOrProgramIsAnError)
{
    folder.Write("train.exe");
    folder.Write("bin/wine"); // not executable
    folder.MakeFolder("bin/wine64");
    EXPECT_EQ(start("train.exe").program, "");
    EXPECT_THROW(start("launcher.exe"), host::RuntimeError);
}
