// SPDX-License-Identifier: MIT
#include "document/ConsistList.h"

#include "host/GameFiles.h"
#include "install/Installation.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using support::TempFolder;

namespace {

TEST(ConsistListTest, NamesInListingOrderBehindTheFilter)
{
    TempFolder folder;
    for (const char *name : {"b.con", "A gp9 x.CON", "GP38.con", "c.con.bak", "x.y.con", "d.txt"})
        folder.Write(std::string("TRAINS/Consists/") + name, "");
    folder.Write("TRAINS/Consists/folder.con/inside.con", "");
    install::Installation installation;
    installation.SetLocation(folder.Path());
    host::GameFiles files;
    const auto list = [&](const char *filter) {
        std::string all;
        for (const std::string &name : document::ListConsists(installation, files, filter))
            all += name + '|';
        return all;
    };
    EXPECT_EQ("A gp9 x|b|GP38|x.y|", list(""));
    EXPECT_EQ("A gp9 x|b|GP38|x.y|", list("*"));
    EXPECT_EQ("A gp9 x|GP38|", list("gp"));
    EXPECT_EQ("GP38|", list("gp*"));
    EXPECT_EQ("x.y|", list("*Y"));
    installation.SetLocation(folder.Path() + "/nowhere");
    EXPECT_EQ("", list(""));
}

TEST(ConsistListTest, Caption)
{
    EXPECT_EQ("Consist List 2 (Filtered on GP*)", document::ConsistListCaption(2, "GP*"));
    EXPECT_EQ("Consist List 1", document::ConsistListCaption(1, "*"));
    EXPECT_EQ("Consist List 1", document::ConsistListCaption(1, ""));
}

} // namespace
