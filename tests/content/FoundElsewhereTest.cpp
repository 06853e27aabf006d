// SPDX-License-Identifier: MIT
#include "content/FoundElsewhere.h"

#include "CompleteInstallation.h"

#include <gtest/gtest.h>

namespace content {
namespace {

const std::string kA = "Trains/Trainset/A/";
constexpr auto kGone = std::nullopt;

struct Case
{
    const char *name;
    FileChanges changes;
    /// The files that name others, and where a check looked for these, below the installation.
    std::vector<std::pair<std::string, std::string>> missed;
    std::size_t msts, openRails, both;
};

const std::vector<Case> &cases()
{
    static const std::vector<Case> kCases = {
        {"sounds in the common folder, in other spellings",
         {{kA + "x.wag", "\nWagon ( x Sound ( common.sms ) )"}},
         {{kA + "x.wag", kA + "Sound/common.sms"},
          {"TRAINS/trainset/A/X.WAG", "trains\\Trainset/A/B/../SOUND/Common.sms"},
          {kA + "SOUND/inside.sms", kA + "SOUND/common.wav"}},
         2,
         2,
         2},
        {"a sound that is nowhere",
         {{kA + "x.wag", "\nWagon ( x Sound ( gone.sms ) )"}},
         {{kA + "x.wag", kA + "Sound/gone.sms"}},
         0,
         0,
         0},
        {"only Open Rails needs no thumbnail and no descriptor",
         {{kA + "w.bmp", kGone}, {kA + "w.sd", kGone}},
         {{kA + "w.wag", kA + "w.bmp"}, {kA + "w.wag", kA + "w.sd"}},
         0,
         2,
         0},
        {"the descriptor of a missing shape is not looked for",
         {{kA + "w.s", kGone}, {kA + "w.sd", kGone}},
         {{kA + "w.wag", kA + "w.s"}, {kA + "w.wag", kA + "w.sd"}},
         0,
         0,
         0},
        {"a vehicle that is there as an override only",
         {{"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( o A ) ) ) )"},
          {kA + "OpenRails/o.wag", "\nWagon ( o WagonShape ( w.s ) )"}},
         {{"Trains/Consists/d.con", kA + "o.wag"}},
         0,
         1,
         0},
        {"an override that names another sound than the missing one",
         {{kA + "x.wag", "\nWagon ( x Sound ( gone.sms ) )"},
          {kA + "OpenRails/x.wag", "\ninclude ( ../x.wag )\nWagon ( Sound ( w.sms ) )"}},
         {{kA + "x.wag", kA + "Sound/gone.sms"}},
         0,
         0,
         0},
        {"a .dds for a missing .ace",
         {{kA + "w.s", "SIMISA@@@@@@@@@@JINX0s1t______\n\nshape ( images ( 1 image ( d.ace ) ) )"},
          {kA + "d.dds", ""}},
         {{kA + "w.s", kA + "d.ace"}},
         0,
         1,
         0},
        {"a picture of a digital display",
         {{kA + "CABVIEW/e.cvf",
           "\nTr_CabViewFile ( CabViewControls ( Digital ( Graphic ( gone.ace ) )\n"
           "Dial ( Graphic ( gone2.ace ) ) ) )"}},
         {{kA + "CABVIEW/e.cvf", kA + "CABVIEW/gone.ace"},
          {kA + "CABVIEW/e.cvf", kA + "CABVIEW/gone2.ace"}},
         1,
         1,
         1},
        {"a path that one of two files misses",
         {{kA + "SOUND/a.sms", "\nTr_SMS ( File ( b/common.wav ) )"},
          {kA + "SOUND/b/b.sms", "\nTr_SMS ( File ( common.wav ) )"}},
         {{kA + "SOUND/a.sms", kA + "SOUND/b/common.wav"},
          {kA + "SOUND/b/b.sms", kA + "SOUND/b/common.wav"}},
         0,
         0,
         0},
        {"files that cannot be read or have no rules",
         {{kA + "note.txt", "w.ace"}},
         {{kA + "none.wag", kA + "none.s"}, {kA + "note.txt", kA + "x.ace"}, {"", ""}},
         0,
         0,
         0},
    };
    return kCases;
}

TEST(FoundElsewhereTest, CountsPathsThatNoSimulatorMisses)
{
    for (const Case &each : cases()) {
        const CompleteInstallation installation(each.changes);
        std::vector<MissedFile> missed;
        for (const auto &[file, path] : each.missed)
            missed.push_back({installation.Folder().At(file), installation.Folder().At(path)});
        const auto count = [&](Profiles profiles) {
            return FoundElsewhere(installation.Folder().Path(), profiles, missed).Count({});
        };
        EXPECT_EQ(count(Profile::Msts), each.msts) << each.name;
        EXPECT_EQ(count(Profile::OpenRails), each.openRails) << each.name;
        EXPECT_EQ(count(Profiles::Both()), each.both) << each.name;
    }
}

TEST(FoundElsewhereTest, HasNoResultOnceStopped)
{
    const CompleteInstallation installation;
    std::stop_source stop;
    stop.request_stop();
    const std::string inside = installation.Folder().At(kA + "SOUND/inside.sms");
    EXPECT_EQ(FoundElsewhere(installation.Folder().Path(), Profiles::Both(),
                             {{inside, installation.Folder().At(kA + "SOUND/common.wav")}})
                  .Count(stop.get_token()),
              std::nullopt);
}

} // namespace
} // namespace content
