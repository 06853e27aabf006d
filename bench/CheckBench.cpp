// SPDX-License-Identifier: MIT
// Compares a check of all stock and a search of all consists with reading the same files once.
// Usage: zelk-check-bench INSTALLATION
#include "Measure.h"
#include "Processes.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/Installation.h"
#include "validation/TSValidation.h"

#include <cstdio>
#include <filesystem>
#include <set>

namespace {

namespace fs = std::filesystem;
using Files = std::vector<std::string>;

/// The files in a folder and its subfolders that have one of these extensions (in lower case).
Files filesBelow(const fs::path &folder, const std::set<std::string> &extensions)
{
    Files found;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(folder))
        if (extensions.contains(host::path::Extension(entry.path().string())))
            found.push_back(entry.path().string());
    return found;
}

class Bench
{
public:
    Bench(const std::string &folder, fs::path trainset, fs::path consists)
        : m_folder(folder)
        , m_folders(bench::FoldersBelow(trainset.string()))
        , m_checked(filesBelow(trainset, {"eng", "wag", "sms", "cvf"}))
        , m_consists(filesBelow(consists, {"con"}))
    {
        m_installation.SetLocation(folder);
    }

    int Run()
    {
        const auto findAndRead = [this] {
            bench::RunQuietly({"find", m_folder});
            bench::ReadOnce(m_checked);
        };
        const auto readConsists = [this] { bench::ReadOnce(m_consists); };
        const auto zelkctl = [this] {
            bench::RunQuietly({"sh", "-c",
                               "\"$0\" --msts \"$1\" check all --no-index || test $? = 1", ZELKCTL,
                               m_folder});
        };
        const char *once = "find, then reading the files once";
        const double memory = bench::PeakMebibytes(all(2)); // first: no freed memory to reuse
        std::vector<bench::Row> rows = {
            bench::Compare("check all, one worker", all(1), once, findAndRead),
            bench::Compare("check all, two workers", all(2), once, findAndRead),
            bench::Compare("zelkctl check all", zelkctl, once, findAndRead),
            {"check all, peak memory", "wanted", memory, 200, "MB"},
            growth("the same in half of the folders", "e"),
            growth("the same in a fifth of the folders", "Stock 00*"),
            bench::Compare("use of a stock file, one worker", use(), "reading the consists once",
                           readConsists),
        };
        addSecondRun(rows);
        bench::PrintTable(rows);
        std::printf("%zu files checked, %zu consists searched\n", m_checked.size(),
                    m_consists.size());
        return 0;
    }

private:
    /// Compares a check that finds everything in the saved index with what it has to look at.
    void addSecondRun(std::vector<bench::Row> &rows)
    {
        const std::string index = bench::MakeTemporaryFolder().string();
        const double memory = bench::PeakMebibytes(all(2, "", index)); // makes and saves it
        all(1, "", index)(); // marks that were too new are trusted by now
        rows.push_back(
            {"check all that saves its index, peak memory", "wanted", memory, 200, "MB"});
        rows.push_back(bench::Compare("check all, second run", all(1, "", index),
                                      "listing the folders alone",
                                      [this] { bench::ListOnce(m_folders); }));
        std::filesystem::remove_all(index);
    }
    /// Each round has a new GameFiles, so that it does not use cached listings.
    std::function<void()> all(std::size_t workers, const char *filter = "",
                              const std::string &index = "")
    {
        return [this, workers, filter, index] {
            host::GameFiles files;
            TSValidation validation(m_installation, files, workers);
            validation.SetIndex({index});
            validation.Reset();
            validation.ProgressRaised = [this](std::size_t, std::size_t total) { m_items = total; };
            validation.CheckAllStock(filter);
        };
    }
    std::function<void()> use()
    {
        return [this] {
            host::GameFiles files;
            TSValidation validation(m_installation, files, 1);
            validation.CheckStockInConsists(m_checked.front());
        };
    }
    /// Compares the time per thousand files for all folders with that for a part of them.
    bench::Row growth(const char *part, const char *filter)
    {
        bench::Row row =
            bench::Compare("check all, for each 1,000 files", all(1), part, all(1, filter));
        all(1)();
        const double whole = static_cast<double>(m_items) / 1000;
        all(1, filter)();
        const double share = static_cast<double>(m_items) / 1000;
        row.value /= whole;
        row.yardstickValue /= share;
        row.processor *= share / whole;
        return row;
    }

    std::string m_folder;
    install::Installation m_installation;
    Files m_folders, m_checked, m_consists;
    std::size_t m_items = 1;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: zelk-check-bench INSTALLATION\n");
        return 2;
    }
    host::GameFiles files;
    const auto trainset = files.FindFolder(host::path::Join(argv[1], "Trains/Trainset"));
    const auto consists = files.FindFolder(host::path::Join(argv[1], "Trains/Consists"));
    if (!trainset || !consists) {
        std::fprintf(stderr, "no Train Simulator installation: %s\n", argv[1]);
        return 2;
    }
    return Bench(argv[1], *trainset, *consists).Run();
}
