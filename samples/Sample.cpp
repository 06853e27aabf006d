// SPDX-License-Identifier: MIT
#include "samples/Sample.h"

#include "samples/Consists.h"
#include "samples/HealthCases.h"
#include "samples/Large.h"
#include "samples/Loads.h"
#include "samples/Looks.h"
#include "samples/Output.h"
#include "samples/Routes.h"
#include "samples/Stock.h"

#include <algorithm>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>

namespace samples {
namespace {

constexpr int kStockPerFolder = 10;
constexpr int kMostFolders = 99'999; // five digits in the names
constexpr int kMostStock = 10'000'000;
constexpr int kMostConsists = 99'999;

Totals defaultTotals()
{
    std::set<std::string> folders;
    for (const Vehicle &vehicle : Vehicles())
        folders.insert(vehicle.folder);
    return {static_cast<int>(folders.size()), static_cast<int>(Vehicles().size()),
            static_cast<int>(Consists().size())};
}

void requireRange(const char *option, std::optional<int> value, int least, int most)
{
    if (value && (*value < least || *value > most))
        throw std::runtime_error("--" + std::string(option) + ' ' + std::to_string(*value) +
                                 ": must be " + std::to_string(least) + " to " +
                                 std::to_string(most));
}

/// Returns what to generate. Only generated folders receive generated stock.
Extra extraOf(const Options &options, const Totals &least)
{
    requireRange("folders", options.folders, least.folders, kMostFolders);
    requireRange("stock", options.stock, least.stock, kMostStock);
    requireRange("consists", options.consists, least.consists, kMostConsists);
    Extra extra;
    extra.folders = options.folders.value_or(least.folders) - least.folders;
    extra.stock = options.stock.value_or(least.stock) - least.stock;
    extra.consists = options.consists.value_or(least.consists) - least.consists;
    extra.seed = options.seed.value_or(extra.seed);
    if (!options.stock)
        extra.stock = extra.folders * kStockPerFolder;
    if (!options.folders)
        extra.folders = std::min((extra.stock + kStockPerFolder - 1) / kStockPerFolder,
                                 kMostFolders - least.folders);
    if (extra.stock > 0 && extra.folders == 0)
        throw std::runtime_error("--folders " + std::to_string(least.folders) +
                                 ": more stock needs at least one folder more");
    return extra;
}

std::string optionText(const char *name, std::optional<int> value)
{
    return value ? " --" + std::string(name) + ' ' + std::to_string(*value) : std::string();
}

std::string markerText(const Options &options)
{
    std::string text = "A sample installation, made by zelk-sample. The program writes its files\n"
                       "here again as long as this file stands unchanged.\nOptions:";
    text += optionText("folders", options.folders);
    text += optionText("stock", options.stock);
    text += optionText("consists", options.consists);
    if (options.seed)
        text += " --seed " + std::to_string(*options.seed);
    if (options.health)
        text += " --health";
    if (options.loads)
        text += " --loads";
    if (options.looks)
        text += " --looks";
    return text + '\n';
}

/// Adds what is in these files to the totals. Overrides are not counted.
void count(const SampleFiles &files, Totals &totals)
{
    std::set<std::string> folders;
    for (const SampleFile &file : files) {
        const std::string folder = file.path.substr(0, file.path.rfind('/'));
        const bool isStock = (file.path.ends_with(".eng") || file.path.ends_with(".wag")) &&
                             !folder.ends_with("/OpenRails");
        if (isStock)
            folders.insert(folder);
        totals.stock += isStock;
        totals.consists += folder == "TRAINS/CONSISTS";
    }
    totals.folders += static_cast<int>(folders.size());
}

} // namespace

Totals WriteSample(const std::filesystem::path &out, const Options &options)
{
    Totals totals = defaultTotals();
    const Extra extra = extraOf(options, totals);
    Options smaller = options;
    smaller.health = smaller.loads = smaller.looks = false; // they only add files
    Output output(out, markerText(options), markerText(smaller));
    for (const auto &files : {StockFiles(), SoundFiles(), CabFiles(), ConsistFiles(), RouteFiles()})
        for (const SampleFile &file : files)
            output.Write(file.path, file.bytes);
    WriteExtra(output, extra);
    totals.folders += extra.folders;
    totals.stock += extra.stock;
    totals.consists += extra.consists;
    for (const SampleFiles &more : {options.health ? HealthFiles() : SampleFiles(),
                                    options.loads ? LoadFiles() : SampleFiles(),
                                    options.looks ? LookFiles() : SampleFiles()}) {
        for (const SampleFile &file : more)
            output.Write(file.path, file.bytes);
        count(more, totals);
    }
    totals.files = output.Count();
    return totals;
}

} // namespace samples
