// SPDX-License-Identifier: MIT
// Compares the health report of an installation, and the figures of its stock, with reading the
// files that they open once.
// Usage: zelk-health-bench INSTALLATION [figures]
#include "Measure.h"
#include "Processes.h"
#include "content/HealthRun.h"
#include "content/StockReader.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/StockFiles.h"

#include <cstdio>
#include <filesystem>
#include <mutex>
#include <set>

namespace {

content::HealthReport check(const std::string &folder, std::size_t workers,
                            std::function<void(const std::string &)> fileRead = {},
                            const std::string &index = {})
{
    host::GameFiles files; // new in each round, so that no listings are cached
    content::HealthOptions options;
    options.workers = workers;
    options.index.folder = index;
    content::HealthRun run(files, folder, options);
    run.FileRead = std::move(fileRead);
    return run.Run();
}

std::vector<std::string> filesOf(const std::string &folder)
{
    std::mutex mutex;
    std::set<std::string> opened;
    check(folder, 1, [&](const std::string &path) {
        const std::lock_guard lock(mutex);
        opened.insert(path);
    });
    return {opened.begin(), opened.end()};
}

/// The vehicles of an installation and their files.
struct Stock
{
    explicit Stock(const std::string &folder)
    {
        host::GameFiles game;
        const std::string trainset =
            game.FindFolder(host::path::Join(folder, install::kTrainset)).value_or("").string();
        for (const std::string &name : install::StockFolders(game, trainset, ""))
            for (const std::string &file : install::StockFiles(game, trainset, name)) {
                const bool engine = file.ends_with("eng");
                items.push_back({engine ? install::kEngine : install::kWagon, name,
                                 file.substr(0, file.size() - 4)});
                files.push_back(host::path::Join(host::path::Join(trainset, name), file));
            }
    }

    std::vector<install::StockItem> items;
    std::vector<std::string> files;
};

void readFigures(const std::string &folder, const Stock &stock, const std::string &index = {})
{
    content::StockReader reader(folder, 1, {index});
    reader.ReadFacts(stock.items);
    reader.Wait();
}

bench::Row compareFigures(const std::string &folder, int rounds)
{
    const Stock stock(folder);
    return bench::Compare(
        "figures of all stock, one worker", [&] { readFigures(folder, stock); },
        "reading the vehicles' files once", [&] { bench::ReadOnce(stock.files); }, rounds);
}

/// Compares runs that find everything in the saved index with what they have to look at.
std::vector<bench::Row> compareSecondRuns(const std::string &folder, int rounds)
{
    const std::string index = bench::MakeTemporaryFolder().string();
    const std::vector<std::string> folders = bench::FoldersBelow(folder);
    const std::vector<std::string> stockFolders =
        bench::FoldersBelow(host::GameFiles()
                                .FindFolder(host::path::Join(folder, install::kTrainset))
                                .value_or("")
                                .string());
    const Stock stock(folder);
    const auto health = [&](std::size_t workers) {
        return [&, workers] { check(folder, workers, {}, index); };
    };
    const auto figures = [&] { readFigures(folder, stock, index); };
    const char *const alone = "listing the folders alone";
    const double memory = bench::PeakMebibytes(health(2)); // makes and saves the index
    figures();
    std::vector<bench::Row> rows = {
        {"health that saves its index, peak memory", "wanted", memory, 400, "MB"},
        bench::Compare(
            "health, second run", health(1), alone, [&] { bench::ListOnce(folders); }, rounds),
        bench::Compare(
            "figures, second run", figures, alone, [&] { bench::ListOnce(stockFolders); }, rounds),
    };
    std::filesystem::remove_all(index);
    return rows;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 && !(argc == 3 && std::string_view(argv[2]) == "figures")) {
        std::fprintf(stderr, "usage: zelk-health-bench INSTALLATION [figures]\n");
        return 2;
    }
    const std::string folder = argv[1];
    constexpr int kRounds = 5;
    if (argc == 3) {
        bench::PrintTable({compareFigures(folder, kRounds)});
        return 0;
    }
    const auto withWorkers = [&](std::size_t workers) {
        return [&folder, workers] { check(folder, workers); };
    };
    const double memory = bench::PeakMebibytes(withWorkers(2)); // first: no freed memory to reuse
    const std::vector<std::string> files = filesOf(folder);
    const auto readAll = [&] { bench::ReadOnce(files); };
    const auto zelkctl = [&] {
        bench::RunQuietly({ZELKCTL, "--msts", folder, "health", "--profile", "both", "--fail-on",
                           "never", "--quiet", "--no-index"});
    };
    const char *const once = "reading the files once";
    std::vector<bench::Row> rows = {
        bench::Compare("health, one worker", withWorkers(1), once, readAll, kRounds),
        bench::Compare("health, two workers", withWorkers(2), once, readAll, kRounds),
        bench::Compare("zelkctl health", zelkctl, once, readAll, kRounds),
        compareFigures(folder, kRounds),
        {"health, peak memory", "wanted", memory, 400, "MB"},
    };
    for (bench::Row &row : compareSecondRuns(folder, kRounds))
        rows.push_back(std::move(row));
    bench::PrintTable(rows);
    std::printf("%zu files read\n", files.size());
    return 0;
}
