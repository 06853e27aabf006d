// SPDX-License-Identifier: MIT
// Compares listing the installed stock and consists with plain walks over the same folders. Usage:
// zelk-list-bench INSTALLATION
#include "Measure.h"
#include "Processes.h"
#include "document/ConsistList.h"
#include "document/StockList.h"
#include "host/GameFiles.h"
#include "install/Installation.h"

#include <cstdio>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

struct Counts
{
    std::size_t stock = 0, consists = 0, walked = 0;
};

std::size_t countStock(const install::Installation &installation, std::size_t workers)
{
    host::GameFiles files; // a new one each time, without cached listings
    document::StockScan scan(installation, files, "", workers);
    std::size_t count = 0;
    while (const auto folder = scan.TakeFolder())
        count += folder->size();
    return count;
}

std::size_t countConsists(const install::Installation &installation)
{
    host::GameFiles files;
    return document::ListConsists(installation, files, "").size();
}

bool looksLikeStock(const std::string &name)
{
    return name.size() > 4 && name[name.size() - 4] == '.' &&
           (name.back() == 'g' || name.back() == 'G');
}

template <typename Iterator> std::size_t walk(const fs::path &folder)
{
    std::size_t count = 0;
    for (const fs::directory_entry &entry : Iterator(folder))
        count += looksLikeStock(entry.path().filename().string()) ? 1 : 0;
    return count;
}

int run(const std::string &folder)
{
    install::Installation installation;
    installation.SetLocation(folder);
    host::GameFiles files;
    const auto trainset = files.FindFolder(installation.PathOf("Trains\\Trainset"));
    const auto consists = files.FindFolder(installation.PathOf("Trains\\Consists"));
    if (!trainset || !consists) {
        std::fprintf(stderr, "no Train Simulator installation: %s\n", folder.c_str());
        return 2;
    }
    Counts counts;
    const auto walkStock = [&] {
        counts.walked = walk<fs::recursive_directory_iterator>(*trainset);
    };
    const auto walkConsists = [&] { counts.walked = walk<fs::directory_iterator>(*consists); };
    const auto stock = [&](std::size_t workers) {
        return [&, workers] { counts.stock = countStock(installation, workers); };
    };
    const auto zelkctl = [&](const char *what) {
        return [&, what] { bench::RunQuietly({ZELKCTL, "--msts", folder, "list", what}); };
    };
    bench::PrintTable({
        bench::Compare("stock, one worker", stock(1), "recursive_directory_iterator", walkStock),
        bench::Compare("stock, all workers", stock(host::DefaultWorkers()),
                       "recursive_directory_iterator", walkStock),
        bench::Compare(
            "consists", [&] { counts.consists = countConsists(installation); },
            "directory_iterator", walkConsists),
        bench::Compare("zelkctl list stock", zelkctl("stock"), "find -name '*.??g'",
                       [&] {
                           bench::RunQuietly({"find", *trainset, "-name", "*.??g"});
                       }),
        bench::Compare("zelkctl list consists", zelkctl("consists"), "ls -U",
                       [&] {
                           bench::RunQuietly({"ls", "-U", *consists});
                       }),
    });
    std::printf("%zu stock files, %zu consists\n", counts.stock, counts.consists);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: zelk-list-bench INSTALLATION\n");
        return 2;
    }
    return run(argv[1]);
}
