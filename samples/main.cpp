// SPDX-License-Identifier: MIT
#include "host/Console.h"
#include "samples/Sample.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kCouldNotRun = 2;

std::filesystem::path pathOf(const std::string &utf8)
{
    return std::u8string(utf8.begin(), utf8.end());
}

int run(std::vector<std::string> arguments)
{
    CLI::App app("Writes a sample Train Simulator installation into a folder.", "zelk-sample");
    std::string out;
    samples::Options options;
    app.add_option("OUT", out, "New or empty folder, or one made by this program")->required();
    app.add_option("--folders", options.folders, "Total of stock folders");
    app.add_option("--stock", options.stock, "Total of engines and wagons");
    app.add_option("--consists", options.consists, "Total of consists");
    app.add_option("--seed", options.seed, "Chooses the generated part (1)");
    app.add_flag("--health", options.health, "Add the planned cases of the health report");
    app.add_flag("--loads", options.loads, "Add vehicles with loads, couplers and hoses");
    app.add_flag("--looks", options.looks, "Add vehicles with lights and night textures");
    std::reverse(arguments.begin(), arguments.end()); // the parser expects the last argument first
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? 0 : kCouldNotRun;
    }
    const samples::Totals totals = samples::WriteSample(pathOf(out), options);
    std::cout << out << ": " << totals.folders << " stock folders, " << totals.stock
              << " engines and wagons, " << totals.consists << " consists, " << totals.files
              << " files\n";
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    try {
        return run(host::Arguments(argc, argv));
    } catch (const std::exception &error) {
        std::fprintf(stderr, "zelk-sample: %s\n", error.what());
        return kCouldNotRun;
    }
}
