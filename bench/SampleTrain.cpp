// SPDX-License-Identifier: MIT
#include "SampleTrain.h"

#include "document/StockList.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "korvat/formats/ReadShape.h"
#include "korvat/formats/Shape.h"
#include "korvat/model/FindTexture.h"
#include "samples/Sample.h"
#include "samples/Stock.h"
#include "samples/TextWriter.h"
#include "viewer/StockShape.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <set>

namespace bench {
namespace {

[[noreturn]] void giveUp(const std::string &what)
{
    std::fprintf(stderr, "%s\n", what.c_str());
    std::exit(1);
}

constexpr const char *kBrokenFolder = "Repair Sidings"; // there files are missing

/// The first vehicles that do not share their models.
std::vector<install::StockItem> differentVehicles(const install::Installation &installation,
                                                  host::GameFiles &files)
{
    std::vector<install::StockItem> vehicles;
    std::set<std::string> shapes;
    document::StockScan scan(installation, files, "");
    while (const auto items = scan.TakeFolder())
        for (const install::StockItem &item : *items) {
            if (item.folder == kBrokenFolder || vehicles.size() == SampleTrain::kKinds)
                continue;
            const std::string path = install::StockPath(installation.CurrentFolder(), item);
            if (shapes.insert(viewer::ReadStockShape(files, path).shapeFile).second)
                vehicles.push_back(item);
        }
    return vehicles;
}

std::string consistText(const std::vector<install::StockItem> &kinds)
{
    std::string text = "Train (\n\tTrainCfg ( bench\n";
    for (std::size_t i = 0; i < SampleTrain::kVehicles; ++i) {
        const install::StockItem &item = kinds[i % kinds.size()];
        text += "\t\t" + item.type + " (\n\t\t\t" + item.type + "Data ( " +
                samples::Quoted(item.shape) + " " + samples::Quoted(item.folder) +
                " )\n\t\t\tUiD ( " + std::to_string(i) + " )\n\t\t)\n";
    }
    return samples::EncodeText("D0", text + "\t)\n)\n");
}

/// Rewrites the shapes of these vehicles.
void writeShapes(host::GameFiles &files, const SampleTrain &train, Shapes shapes)
{
    samples::ShapeForm form = samples::ShapeForm::TextUtf16;
    for (const install::StockItem &item : train.kinds) {
        const std::string stock = install::StockPath(train.folder, item);
        const std::string path = viewer::ReadStockShape(files, stock).shapeFile;
        const std::string name(host::path::BaseName(path));
        const auto all = samples::StockShapes();
        const auto shape = std::find_if(all.begin(), all.end(), [&](const auto &each) {
            return each.folder == item.folder && host::ToUpper(each.name) == host::ToUpper(name);
        });
        if (shape == all.end())
            giveUp("there is no model for " + path);
        files.WriteFile(path, samples::StockShapeBytes(*shape, form));
        if (shapes == Shapes::MostlyCompressed)
            form = samples::ShapeForm::Compressed;
    }
}

} // namespace

std::vector<std::string> SampleTrain::Files() const
{
    host::GameFiles files;
    std::set<std::string> paths;
    const auto add = [&](const std::string &path) {
        paths.insert(host::path::FromDisk(files.FindFile(path).value()));
    };
    add(consist);
    for (const install::StockItem &item : kinds) {
        const std::string stock = install::StockPath(folder, item);
        const std::string shape = viewer::ReadStockShape(files, stock).shapeFile;
        add(stock);
        add(shape);
        for (const std::string &image : korvat::ReadShape(files.ReadFile(shape)).shape.images)
            if (const auto texture = korvat::FindTexture(files, shape, "", image))
                add(*texture);
    }
    return {paths.begin(), paths.end()};
}

SampleTrain MakeSampleTrain(const std::filesystem::path &folder, Shapes shapes)
{
    samples::WriteSample(folder);
    SampleTrain train{host::path::FromDisk(folder), "! bench", {}, {}};
    install::Installation installation;
    installation.SetLocation(train.folder);
    host::GameFiles files;
    train.kinds = differentVehicles(installation, files);
    if (train.kinds.size() < SampleTrain::kKinds)
        giveUp("the sample has too few vehicles");
    writeShapes(files, train, shapes);
    train.consist = installation.ConsistPath(train.name);
    files.WriteFile(train.consist, consistText(train.kinds));
    return train;
}

} // namespace bench
