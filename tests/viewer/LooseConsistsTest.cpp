// SPDX-License-Identifier: MIT
#include "viewer/LooseConsists.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

class LooseConsistsTest : public testing::Test
{
protected:
    /// Writes an activity with these blocks in its list of objects and returns its path.
    std::string activity(const std::string &objects)
    {
        return folder.Write("a.act", "SIMISA@@@@@@@@@@JINX0a0t______\n\nTr_Activity ( "
                                     "Tr_Activity_File ( ActivityObjects ( " +
                                         objects + " ) ) )\n");
    }
    static int errorOf(const std::function<void()> &call)
    {
        try {
            call();
        } catch (const host::RuntimeError &error) {
            EXPECT_NE(error.Detail().find("a.act"), std::string::npos) << error.what();
            return error.Number();
        }
        return 0;
    }

    support::TempFolder folder;
    host::GameFiles files;
};

TEST_F(LooseConsistsTest, ReturnsTheTrainOfEachObjectByItsNumber)
{
    const std::string path =
        activity("ActivityObject ( Train_Config ( TrainCfg ( one ) ) ) ActivityObject ( ) "
                 "ActivityObject ( Train_Config ( TrainCfg ( three ) ) )");
    const auto trains = viewer::ReadLooseConsists(files, path);
    ASSERT_EQ(trains.size(), 3u);
    EXPECT_EQ(trains[0].Parameter(0), "one");
    EXPECT_FALSE(trains[1]);
    EXPECT_EQ(viewer::LooseConsistAt(files, path, 1).Parameter(0), "one");
    EXPECT_EQ(viewer::LooseConsistAt(files, path, 3).Parameter(0), "three");
    for (const auto &[number, error] : {std::pair(0, 9), std::pair(4, 9), std::pair(2, 91)})
        EXPECT_EQ(errorOf([&, at = number] { viewer::LooseConsistAt(files, path, at); }), error);
}

TEST_F(LooseConsistsTest, RefusesMoreThan16BitsCount)
{
    std::string objects;
    for (int i = 0; i < 32767; ++i)
        objects += "O ( ) ";
    EXPECT_EQ(viewer::ReadLooseConsists(files, activity(objects)).size(), 32767u);
    const std::string path = activity(objects + "O ( )");
    EXPECT_EQ(errorOf([&] { viewer::ReadLooseConsists(files, path); }), 6);
}

} // namespace
