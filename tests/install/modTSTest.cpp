// SPDX-License-Identifier: MIT
#include "install/modTS.h"

#include "host/GameFiles.h"
#include "install/Installation.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

/// Prints the tree as "name value value { child ... }".
std::string outline(const StfNodes &nodes)
{
    std::string text;
    for (const StfNode node : nodes) {
        text += (text.empty() ? "" : ", ") + node.Name();
        for (int i = 0; i < node.NumParameters(); ++i)
            text += ' ' + node.Parameter(i);
        if (node.Children().Count() > 0)
            text += " { " + outline(node.Children()) + " }";
    }
    return text;
}

TEST(modTSTest, NewConsistHasExactlyTheBlocksOfTheTemplate)
{
    const support::TempFolder folder;
    host::GameFiles files;
    for (const char *extension : {"con", "CON"}) {
        StfFile file(files);
        modTS::NewDocumentTemplate(file, extension);
        const char *const expected = "Train { TrainCfg { Name Unknown, "
                                     "MaxVelocity 40.00000 1.00000, NextWagonId 1, "
                                     "Durability 1.0 } }";
        EXPECT_EQ(outline(file.TopNodes()), expected);
        file.SetFileName(folder.At("new.con"));
        file.Save();
        const StfFile again = StfFile::Read(files, folder.At("new.con"));
        EXPECT_EQ(outline(again.TopNodes()), expected);
    }
    for (const char *extension : {"eng", "", ".con", "acon"}) {
        StfFile file(files);
        modTS::NewDocumentTemplate(file, extension);
        EXPECT_EQ(file.TopNodes().Count(), 0) << extension;
    }
}

TEST(modTSTest, ListsRoutes)
{
    const support::TempFolder folder;
    const auto route = [&](const std::string &name, const std::string &text) {
        folder.Write("routes/" + name + '/' + name + ".TRK", text);
    };
    route("USA2", "_OpenRails ( x ) Tr_RouteFile ( RouteID ( USA2 ) Name ( \"Marias Pass\" ) )");
    route("europe1", "Tr_RouteFile ( Name ( Innsbruck to St. Anton ) )");
    route("Nameless", "Tr_RouteFile ( RouteID ( x ) )");
    route("Empty", "Tr_RouteFile ( Name ( ) )");
    route("Wrong", "Tr_Activity ( Name ( \"x\" ) )");
    route("Bar", "Tr_RouteFile ( Name ( \"A|B\" ) )");
    route("Version.2", "Tr_RouteFile ( Name ( \"x\" ) )");
    folder.MakeFolder("routes/Missing");
    folder.MakeFolder("routes/Folder/Folder.trk");
    folder.Write("routes/file");

    install::Installation installation;
    host::GameFiles files;
    installation.SetLocation(folder.Path());
    EXPECT_EQ(modTS::RoutesList(installation, files, false),
              "Bar|Empty|europe1|Folder|Missing|Nameless|USA2|Wrong");
    EXPECT_EQ(modTS::RoutesList(installation, files, true),
              "Bar(A B)|Empty|europe1(Innsbruck to St. Anton)|Folder|Missing|Nameless|"
              "USA2(Marias Pass)|Wrong");
    installation.SetLocation(folder.At("none"));
    EXPECT_EQ(modTS::RoutesList(installation, files, true), "");
}

} // namespace
