// SPDX-License-Identifier: MIT
#include "ui/main/QtDesktop.h"

#include "GuiTest.h"

#include <filesystem>

TEST(QtDesktopTest, ProgramsRunInTheirFolderAndPrefixWithoutWaiting)
{
    const support::TempFolder folder;
    const std::string game = folder.MakeFolder("the game");
    const std::string program =
        folder.Write("wine", "#!/bin/sh\necho \"$WINEPREFIX|$PWD|$1|$2|$#\" > \"$2.part\"\n"
                             "mv \"$2.part\" \"$2\"\nsleep 2\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    app::QtDesktop desktop;
    const std::string out = folder.At("out $HOME");
    desktop.Start({program, {"a;b", out}, game, "/a prefix"});
    EXPECT_TRUE(Wait([&] { return folder.Exists("out $HOME"); }));
    EXPECT_EQ(folder.Read("out $HOME"), "/a prefix|" + game + "|a;b|" + out + "|2\n");
    EXPECT_THROW(desktop.Start({folder.At("gone"), {}, game, {}}), host::RuntimeError);
}
