// SPDX-License-Identifier: MIT
#include "CompleteInstallation.h"
#include "content/HealthFormats.h"
#include "content/StockReader.h"
#include "host/Disk.h"
#include "install/StockFiles.h"
#include "support/RandomEdits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>

namespace {

/// A clock that is ahead, so that files that were written a moment ago are old enough.
std::int64_t later()
{
    return host::disk::Now() + 10000000000;
}

std::string report(const CompleteInstallation &complete, content::HealthOptions options,
                   int *filesRead = nullptr)
{
    host::GameFiles files;
    std::atomic<int> count = 0;
    options.workers = 2;
    content::HealthRun run(files, complete.Folder().Path(), std::move(options));
    run.FileRead = [&](const std::string &) { ++count; };
    std::string json;
    content::WriteHealthJson(run.Run(), [&](std::string_view text) { json += text; });
    if (filesRead)
        *filesRead = count;
    return json;
}

/// Returns the facts of all stock as text.
std::string figures(const CompleteInstallation &complete, const host::IndexOptions &index)
{
    const std::string &root = complete.Folder().Path();
    host::GameFiles files;
    const std::string trainset = host::path::Join(root, install::kTrainset);
    std::vector<install::StockItem> items;
    for (const std::string &folder : install::StockFolders(files, trainset, ""))
        for (const std::string &file : install::StockFiles(files, trainset, folder))
            items.push_back({file.ends_with("eng") ? install::kEngine : install::kWagon, folder,
                             file.substr(0, file.size() - 4)});
    items.push_back({install::kWagon, "none", "none"});
    content::StockReader reader(root, 2, index);
    reader.ReadFacts(items);
    reader.Wait();
    std::string text;
    for (const install::StockItem &item : items) {
        const auto facts = reader.Facts(item);
        text += item.folder + '/' + item.shape + ' ' + facts->name + ' ' + facts->kinds + ' ' +
                facts->coupling + ' ' + facts->brakes + ' ' + facts->fault;
        for (const content::StockFacts::Number &number : facts->numbers)
            text += ' ' + std::to_string(static_cast<int>(number.state)) + '=' +
                    std::to_string(number.value);
        text += '\n';
    }
    return text;
}

const FileChanges kMore = {
    {"TRAINS/TRAINSET/Other/o.wag", "Wagon ( o WagonShape ( none.s ) Sound ( gone.sms ) )"},
    {"TRAINS/TRAINSET/Other/p.wag",
     "\nInclude ( p.inc )\nWagon ( p Size ( 2m 3m bad ) Mass ( 12t ) )"},
    {"TRAINS/TRAINSET/Other/p.inc", "Wagon ( Sound ( p.sms ) )"},
    {"TRAINS/TRAINSET/Other/SOUND/p.sms", "Tr_SMS ( File ( none.wav ) File ( p.sms ) )"},
    {"TRAINS/CONSISTS/more.con",
     "Train ( TrainCfg ( more Wagon ( WagonData ( o Other ) ) Wagon ( WagonData ( p Other ) ) "
     "Wagon ( WagonData ( none Other ) ) Wagon ( WagonData ( o OTHER ) ) ) )"},
    {"TRAINS/CONSISTS/again.con",
     "Train ( TrainCfg ( again Wagon ( WagonData ( o Other ) ) Wagon ( WagonData ( x None ) ) ) )"},
};

TEST(KeptUnitsTest, HealthAndFiguresAreTheSameAfterAnyChange)
{
    for (std::uint32_t seed = 1; seed <= 6; ++seed) {
        const CompleteInstallation complete(kMore);
        const support::TempFolder cache;
        const host::IndexOptions index{cache.Path(), later};
        content::HealthOptions options;
        options.routes = seed % 3 == 0;
        if (seed % 2 == 0)
            options.profiles = content::Profile::OpenRails;
        content::HealthOptions withIndex = options;
        withIndex.index = index;
        support::RandomEdits edits(complete.Folder(), seed);
        std::string history;
        for (int step = 0; step < 30; ++step) {
            ASSERT_EQ(report(complete, withIndex), report(complete, options))
                << "seed " << seed << history;
            ASSERT_EQ(figures(complete, index), figures(complete, {}))
                << "seed " << seed << history;
            support::RandomEdits::WaitForTick();
            for (int i = 0; i <= step % 3; ++i)
                history += '\n' + edits.Step();
            support::RandomEdits::WaitForTick();
        }
    }
}

TEST(KeptUnitsTest, AChangeOfAnyFileIsNoticed)
{
    const CompleteInstallation complete(kMore);
    const support::TempFolder cache;
    content::HealthOptions withIndex;
    withIndex.index = {cache.Path(), later};
    support::RandomEdits edits(complete.Folder(), 0);
    report(complete, withIndex);
    edits.ChangeEachFile([&](const std::string &change) {
        EXPECT_EQ(report(complete, withIndex), report(complete, {})) << change;
        EXPECT_EQ(figures(complete, withIndex.index), figures(complete, {})) << change;
    });
}

TEST(KeptUnitsTest, ASecondRunReadsOnlyChangedFiles)
{
    const CompleteInstallation complete(kMore);
    const support::TempFolder cache;
    content::HealthOptions options;
    options.index = {cache.Path(), later};
    int first = 0, second = 0, third = 0;
    const std::string json = report(complete, options, &first);
    EXPECT_EQ(report(complete, options, &second), json);
    support::RandomEdits::WaitForTick();
    complete.Folder().Write("TRAINS/TRAINSET/Other/o.wag", "Wagon ( o WagonShape ( none.s ) )");
    EXPECT_NE(report(complete, options, &third), json);
    EXPECT_GT(first, 20);
    // Routes are read again: what they name is also found by names inside other files.
    EXPECT_LT(second, first / 2);
    EXPECT_GE(third, second + 3) << "both vehicles of the folder, and consists";
    EXPECT_LT(third, second + 8);
}

TEST(KeptUnitsTest, StockFoldersThatConsistsWantAreNoticed)
{
    const CompleteInstallation complete(kMore);
    const support::TempFolder cache;
    content::HealthOptions withIndex;
    withIndex.index = {cache.Path(), later};
    const std::string before = report(complete, withIndex);
    for (const char *const name :
         {"TRAINS/TRAINSET/None/x.wag", "TRAINS/TRAINSET/Other/OpenRails/none.wag"}) {
        support::RandomEdits::WaitForTick();
        complete.Folder().Write(name, "Wagon ( x WagonShape ( x.s ) )");
        EXPECT_EQ(report(complete, withIndex), report(complete, {})) << name;
    }
    EXPECT_NE(report(complete, {}), before);
}

TEST(KeptUnitsTest, SharedFilesFromTheIndexAreStillWatched)
{
    const CompleteInstallation complete(kMore);
    const support::TempFolder cache;
    content::HealthOptions withIndex;
    withIndex.index = {cache.Path(), later};
    report(complete, withIndex);
    // The vehicle is read again and finds the faults of its sound in the index.
    support::RandomEdits::WaitForTick();
    complete.Folder().Write("TRAINS/TRAINSET/Other/p.wag",
                            "\nInclude ( p.inc )\nWagon ( p Size ( 2m 3m 4m ) )");
    EXPECT_EQ(report(complete, withIndex), report(complete, {}));
    support::RandomEdits::WaitForTick();
    complete.Folder().Write("TRAINS/TRAINSET/Other/SOUND/p.sms", "Tr_SMS ( File ( gone.wav ) )");
    EXPECT_EQ(report(complete, withIndex), report(complete, {}));
}

TEST(KeptUnitsTest, FiguresOfAFewVehiclesKeepThoseOfTheOthers)
{
    const CompleteInstallation complete(kMore);
    const support::TempFolder cache;
    const host::IndexOptions index{cache.Path(), later};
    const std::string all = figures(complete, index);
    const std::size_t size = cache.Read(cache.Names().at(0)).size();
    {
        content::StockReader reader(complete.Folder().Path(), 1, index);
        reader.ReadFacts({{install::kWagon, "Other", "new"}});
        reader.Wait();
    }
    EXPECT_GT(cache.Read(cache.Names().at(0)).size(), size);
    EXPECT_EQ(figures(complete, index), all);
}

} // namespace
