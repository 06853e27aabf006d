// SPDX-License-Identifier: MIT
#include "Measure.h"

#include "Processes.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <memory>
#include <system_error>
#include <utility>

namespace bench {
namespace {

/// Adds the rows to the file that scripts/bench asks for, with tabs between the values.
void recordRows(const std::vector<Row> &rows)
{
    const char *const name = std::getenv("ZELK_BENCH_ROWS");
    if (!name)
        return;
    std::FILE *const file = std::fopen(name, "a");
    if (!file) {
        std::fprintf(stderr, "cannot write %s\n", name);
        std::exit(1);
    }
    for (const Row &row : rows)
        std::fprintf(file, "%s\t%s\t%.4f\t%.4f\t%s\t%.4f\n", row.what.c_str(),
                     row.yardstick.c_str(), row.value, row.yardstickValue, row.unit.c_str(),
                     row.processor);
    std::fclose(file);
}

} // namespace

void PrintTable(const std::vector<Row> &rows)
{
    std::printf("\n%-44s %12s   %-44s %12s %7s %7s\n", "what", "", "yardstick", "", "ratio", "CPU");
    for (const Row &row : rows) {
        std::printf("%-44s %9.2f %-2s   %-44s %9.2f %-2s %7.2f", row.what.c_str(), row.value,
                    row.unit.c_str(), row.yardstick.c_str(), row.yardstickValue, row.unit.c_str(),
                    row.value / row.yardstickValue);
        if (row.processor > 0)
            std::printf(" %7.2f", row.processor);
        std::printf("\n");
    }
    std::fflush(stdout);
    recordRows(rows);
}

double Milliseconds(const std::function<void()> &work)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void ReadOnce(const std::vector<std::string> &files)
{
    static std::vector<char> buffer(1 << 20);
    for (const std::string &name : files) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::fopen(name.c_str(), "rb"),
                                                                    std::fclose);
        if (!file) {
            std::fprintf(stderr, "cannot read %s\n", name.c_str());
            std::exit(1);
        }
        std::setvbuf(file.get(), nullptr, _IONBF, 0);
        while (std::fread(buffer.data(), 1, buffer.size(), file.get()) == buffer.size())
            continue;
    }
}

std::vector<std::string> FoldersBelow(const std::string &folder)
{
    std::vector<std::string> folders = {folder};
    for (const std::filesystem::directory_entry &entry :
         std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_directory())
            folders.push_back(entry.path().string());
    return folders;
}

void ListOnce(const std::vector<std::string> &folders)
{
    for (const std::string &folder : folders) {
        std::error_code error;
        std::filesystem::directory_iterator entry(folder, error);
        while (!error && entry != std::filesystem::directory_iterator())
            entry.increment(error);
        if (error) {
            std::fprintf(stderr, "cannot list %s\n", folder.c_str());
            std::exit(1);
        }
    }
}

Row Compare(std::string what, const std::function<void()> &work, std::string yardstick,
            const std::function<void()> &yardstickWork, int rounds)
{
    constexpr double kNever = std::numeric_limits<double>::infinity();
    Row row{std::move(what), std::move(yardstick), kNever, kNever};
    double processor = 0, yardstickProcessor = 0;
    for (int round = 0; round < rounds; ++round) {
        const double before = ProcessorMilliseconds();
        row.value = std::min(row.value, Milliseconds(work));
        const double between = ProcessorMilliseconds();
        row.yardstickValue = std::min(row.yardstickValue, Milliseconds(yardstickWork));
        processor += between - before;
        yardstickProcessor += ProcessorMilliseconds() - between;
    }
    row.processor = processor / yardstickProcessor;
    return row;
}

} // namespace bench
