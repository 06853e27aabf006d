// SPDX-License-Identifier: MIT
#include "Scene.h"

#include "host/Folders.h"
#include "host/Path.h"
#include "host/Text.h"

#include <fstream>
#include <new>
#include <stdexcept>

korvat::LoadedModel MadeUpShapes::LoadModel(const std::string &path)
{
    const std::lock_guard lock(mutex);
    const std::string name(host::path::FileName(path));
    if (name == "bad.s")
        return {nullptr, "  bad.s: nothing but holes "};
    if (name == "heavy.s")
        throw std::bad_alloc();
    if (name == "odd.s")
        throw std::logic_error("an odd number of corners");
    auto model = std::make_shared<korvat::Model>();
    model->textures = textures[name];
    for (const float z : {-length / 2, length / 2, 0.0f})
        model->mesh.vertices.push_back({{z / 4, 1, z}, {0, 1, 0}, {}});
    for (std::size_t i = 0; i < corners.size(); ++i)
        model->mesh.vertices[i].position = corners[i];
    model->mesh.indices = {0, 1, 2};
    model->parts.resize(1);
    model->parts[0].indexCount = 3;
    model->joints = joints;
    model->levels = levels;
    model->faults = faults;
    if (!joints.empty())
        model->parts[0].joint = static_cast<std::uint32_t>(joints.size() - 1);
    korvat::MeasureBounds(*model);
    return {model, {}};
}

korvat::LoadedTexture MadeUpShapes::LoadTexture(const std::string &folder,
                                                const std::string &texturePath,
                                                const std::string &name)
{
    const std::lock_guard lock(mutex);
    asked += folder + "|" + texturePath + "|" + name + "\n";
    if (name == "heavy.ace")
        throw std::bad_alloc();
    auto picture = std::make_shared<korvat::Texture>();
    return {picture, name == "gone.ace" ? "gone.ace is missing" : ""};
}

void SceneTest::writeStock(const std::string &folder, const std::string &file,
                           const std::string &size, const std::string &shape)
{
    const std::string base = "Trains/Trainset/" + folder + "/";
    game.Write(base + file, "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( \"" + file +
                                "\"\r\n\tSize ( " + size + " )\r\n" +
                                (shape.empty() ? "" : "\tWagonShape ( \"" + shape + "\" )\r\n") +
                                ")\r\n");
    if (!shape.empty())
        game.Write(base + shape, "shape");
}

std::streamoff SceneTest::endOfTrace()
{
    std::ifstream log(host::TraceLogFile(), std::ios::binary | std::ios::ate);
    return log ? static_cast<std::streamoff>(log.tellg()) : 0;
}

std::string SceneTest::traceLines() const
{
    std::ifstream log(host::TraceLogFile(), std::ios::binary);
    log.seekg(traceBegin);
    std::string lines, line;
    while (std::getline(log, line))
        lines += line.substr(9, line.find_last_of(' ') - 9) + "\n";
    return lines;
}

void TrainTest::writeCar(const std::string &name, const std::string &length,
                         const std::string &entries)
{
    game.Write(kCars + name, "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( x Size ( 3m 4m " +
                                 length + " )\nWagonShape ( box.s )\n" + entries + " )\r\n");
}

void TrainTest::load(const std::string &wagons)
{
    std::string text = "Train ( TrainCfg ( \"Mixed\"\n";
    for (const std::string &name : host::Split(wagons, ' '))
        text += "Wagon ( WagonData ( " + name.substr(0, name.find('*')) + " Cars )" +
                (name.ends_with('*') ? " Flip ( )" : "") + " )\n";
    file.LoadBytes(text + ") )");
    stage.RenderLooseConsist(file.FindNode("Train").Child("TrainCfg"), game.Path(), "x.act");
    finish();
}

void TrainTest::view(const std::string &shape, const std::string &vehicle)
{
    stage.RenderShape(car(shape), vehicle.empty() ? vehicle : car(vehicle));
    finish();
}

void TrainTest::finish()
{
    while (stage.Step())
        continue;
}
