// SPDX-License-Identifier: MIT
#include "document/ConsistList.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/Installation.h"
#include "support/Environment.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using support::TempFolder;

namespace {

TEST(ConsistListTest, ListsNamesThatPassTheFilterInListingOrder)
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
    EXPECT_EQ(list(""), "A gp9 x|b|GP38|x.y|");
    EXPECT_EQ(list("*"), "A gp9 x|b|GP38|x.y|");
    EXPECT_EQ(list("gp"), "A gp9 x|GP38|");
    EXPECT_EQ(list("gp*"), "GP38|");
    EXPECT_EQ(list("*Y"), "x.y|");
    installation.SetLocation(folder.Path() + "/nowhere");
    EXPECT_EQ(list(""), "");
}

/// An empty list shows the reason and the command that helps.
TEST(ConsistListTest, EmptyListShowsTheReason)
{
    TempFolder folder;
    const std::string consists = host::path::Normalise(folder.At("full/Trains/Consists"));
    folder.MakeFolder("full/TRAINS/Consists");
    folder.MakeFolder("bare");
    const support::ScopedHome home;
    install::Installation installation;
    host::GameFiles files;
    const auto expectWords = [&](const char *filter, bool concernsLocation,
                                 const std::vector<std::string> &words) {
        const document::EmptyListNote note = document::EmptyListHint(installation, files, filter);
        for (const std::string &word : words)
            EXPECT_NE(note.text.find(word), std::string::npos) << note.text;
        EXPECT_EQ(note.concernsLocation, concernsLocation) << note.text;
    };
    if (install::Installation::RegisteredFolder().empty()) // it may exist on Windows
        expectWords("*", true, {"Where is Train Simulator?", "Trains and Routes"});
    installation.SetLocation(folder.At("bare"));
    expectWords("x", true, {"No installation", "there is no folder", "bare"});
    installation.SetLocation(folder.At("full"));
    expectWords("gp*", false, {"No consist matches the filter gp*", "View > Filter"});
    expectWords("*", true, {"There are no consists in\n" + consists, "File > New > Consist"});
}

TEST(ConsistListTest, CaptionShowsTheFilter)
{
    EXPECT_EQ(document::ConsistListCaption(2, "GP*"), "Consist List 2 (Filtered on GP*)");
    EXPECT_EQ(document::ConsistListCaption(1, "*"), "Consist List 1");
    EXPECT_EQ(document::ConsistListCaption(1, ""), "Consist List 1");
}

} // namespace
