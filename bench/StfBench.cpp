// SPDX-License-Identifier: MIT
// Compares loading a large text shape with an XML reader that loads the same tree, and saving an
// edited consist with writing its bytes.
#include "Measure.h"
#include "Processes.h"
#include "ShapeText.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "stavfile/StfFile.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

constexpr std::size_t kShapeBytes = 47'000'000;
constexpr std::size_t kConsistBytes = 1'000'000;
constexpr int kRepetitions = 5;

void loadStructured(host::GameFiles &files, std::string bytes)
{
    StfFile file(files);
    file.LoadBytes(std::move(bytes));
    benchmark::DoNotOptimize(file.Nodes().Count());
}

void loadXml(pugi::xml_document &document, const std::string &bytes)
{
    if (!document.load_buffer(bytes.data(), bytes.size(), pugi::parse_default,
                              pugi::encoding_utf16_le))
        std::abort();
}

/// Times only the loading, not the copying of the bytes or the destruction of the tree.
void structuredLoad(benchmark::State &state, const std::string &bytes)
{
    host::GameFiles files;
    for ([[maybe_unused]] auto _ : state) {
        StfFile file(files);
        std::string copy = bytes;
        state.SetIterationTime(bench::Milliseconds([&] { file.LoadBytes(std::move(copy)); }) /
                               1000);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

void xmlLoad(benchmark::State &state, const std::string &bytes)
{
    for ([[maybe_unused]] auto _ : state) {
        pugi::xml_document document;
        state.SetIterationTime(bench::Milliseconds([&] { loadXml(document, bytes); }) / 1000);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
}

void structuredSave(benchmark::State &state, const std::string &bytes,
                    const std::filesystem::path &folder)
{
    host::GameFiles files;
    StfFile file(files);
    file.LoadBytes(bytes);
    file.SetFileName(host::path::FromDisk(folder / "saved.con"));
    StfNode velocity = file.FindNode("Train").Child("TrainCfg").Child("MaxVelocity");
    int speed = 0;
    for ([[maybe_unused]] auto _ : state) {
        velocity.SetParameter(0, std::to_string(10 + ++speed % 90));
        state.SetIterationTime(bench::Milliseconds([&] { file.Save(); }) / 1000);
    }
}

void plainWrite(benchmark::State &state, const std::string &bytes,
                const std::filesystem::path &folder, bool flushed)
{
    const std::filesystem::path temporary = folder / "plain.tmp", target = folder / "plain.con";
    const auto write = [&] {
        std::FILE *file = std::fopen(temporary.string().c_str(), "wb");
        if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size() ||
            std::fclose(file) != 0)
            std::abort();
        if (flushed)
            bench::FlushToDisk(temporary);
        std::filesystem::rename(temporary, target);
    };
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(bench::Milliseconds(write) / 1000);
}

/// Keeps the shortest time of each benchmark for the table of ratios.
class Collector : public benchmark::ConsoleReporter
{
public:
    Collector()
        : ConsoleReporter(OO_Tabular)
    {
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs)
            if (run.run_type == Run::RT_Iteration) {
                const double time = run.GetAdjustedRealTime();
                const auto [place, isNew] =
                    m_shortest.try_emplace(run.run_name.function_name, time);
                if (!isNew)
                    place->second = std::min(place->second, time);
            }
        ConsoleReporter::ReportRuns(runs);
    }
    /// Adds a row if both benchmarks were run.
    void AddRow(std::vector<bench::Row> &rows, const std::string &what,
                const std::string &yardstick) const
    {
        const auto value = m_shortest.find(what), other = m_shortest.find(yardstick);
        if (value != m_shortest.end() && other != m_shortest.end())
            rows.push_back({what, yardstick, value->second, other->second});
    }

private:
    std::map<std::string, double> m_shortest;
};

bench::Row memoryRow(const bench::ShapeText &shape)
{
    const double structured = bench::PeakMebibytes([&] {
        host::GameFiles files;
        loadStructured(files, shape.structured);
    });
    const double xml = bench::PeakMebibytes([&] {
        const std::string bytes = shape.xml;
        pugi::xml_document document;
        loadXml(document, bytes);
    });
    return {"load shape, peak memory", "load shape as XML, peak memory", structured, xml, "MB"};
}

template <typename Function, typename... Arguments>
void add(const char *name, int iterations, Function function, const Arguments &...arguments)
{
    benchmark::RegisterBenchmark(
        name, [=, &arguments...](benchmark::State &state) { function(state, arguments...); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(iterations)
        ->Repetitions(kRepetitions);
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    const bench::ShapeText shape = bench::MakeShapeText(kShapeBytes);
    const std::string consist = bench::MakeConsistText(kConsistBytes);
    const std::filesystem::path folder = bench::MakeTemporaryFolder();
    const bool kFlushed = true, kPlain = false;

    add("load shape", 1, structuredLoad, shape.structured);
    add("load shape as XML", 1, xmlLoad, shape.xml);
    add("load shape as XML, value by value", 1, xmlLoad, shape.xmlValues);
    add("save edited consist", 20, structuredSave, consist, folder);
    add("fwrite and rename", 20, plainWrite, consist, folder, kPlain);
    add("fwrite, flush to disk and rename", 20, plainWrite, consist, folder, kFlushed);

    std::vector<bench::Row> rows{memoryRow(shape)};
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    collector.AddRow(rows, "load shape", "load shape as XML");
    collector.AddRow(rows, "load shape", "load shape as XML, value by value");
    collector.AddRow(rows, "save edited consist", "fwrite and rename");
    collector.AddRow(rows, "save edited consist", "fwrite, flush to disk and rename");
    bench::PrintTable(rows);
    std::filesystem::remove_all(folder);
    return 0;
}
