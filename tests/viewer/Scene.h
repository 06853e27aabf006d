// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"
#include "install/Environment.h"
#include "install/Installation.h"
#include "korvat/draw/Canvas.h"
#include "korvat/draw/Renderer.h"
#include "korvat/model/ModelSource.h"
#include "stavfile/StfFile.h"
#include "support/Environment.h"
#include "support/MemorySettings.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "viewer/Stage.h"

#include <gtest/gtest.h>

#include <array>
#include <ios>
#include <map>
#include <mutex>
#include <string>

/// A canvas without a device that records each call as a word.
class RecordingCanvas : public korvat::Canvas
{
public:
    void CanvasStart() override { log += "start "; }
    void CanvasBeginRendering() override { log += "rendering "; }
    korvat::Renderer *Device() override { return &renderer; }
    void CanvasRestore() override { log += "restore "; }
    void SetCamera(float x, float y, float z, float tx, float ty, float tz) override
    {
        log += "camera ";
        camera = {x, y, z, tx, ty, tz};
    }
    bool BeginFrame() override
    {
        log += ready ? "begin " : "refuse ";
        return ready;
    }
    void EndFrame() override { log += "end "; }
    void SetRangeNear(long metres) override { log += "near" + std::to_string(metres) + ' '; }
    void SetRangeFar(long metres) override { log += "far" + std::to_string(metres) + ' '; }
    void SetGround(korvat::Ground scenes) override { ground = scenes; }
    void ProcessEvents() override { log += "yield "; }

    std::string TakeLog() { return std::exchange(log, {}); }

    korvat::Renderer renderer;
    std::array<float, 6> camera{};
    korvat::Ground ground = korvat::Ground::Track;
    std::string log;
    bool ready = true;
};

/// Made-up shapes: every existing file loads, with the textures set for its name and with `length`.
/// "bad.s" is broken; "heavy.s", "heavy.ace" and "odd.s" throw unexpected exceptions.
class MadeUpShapes : public korvat::ModelSource
{
public:
    korvat::LoadedModel LoadModel(const std::string &path) override;
    korvat::LoadedModel LoadLevel(const std::string &path, int level) override
    {
        levelsRead += std::to_string(level) + ' ';
        return LoadModel(path);
    }
    korvat::LoadedTexture LoadTexture(const std::string &folder, const std::string &texturePath,
                                      const std::string &name) override;

    std::map<std::string, std::vector<std::string>> textures; ///< by the shape's file name
    std::string asked; ///< folders and paths of the requested textures, as given
    float length = 8;
    std::vector<korvat::Joint> joints; ///< the only triangle belongs to the last one
    std::vector<float> levels;
    std::vector<std::string> faults;
    std::string levelsRead;            ///< beyond the nearest one
    std::vector<korvat::Vec3> corners; ///< of the only triangle; empty for one of this length
    std::mutex mutex;                  ///< holding it blocks the reading of shapes
};

/// A private installation, scripted dialogs and made-up shapes.
class SceneTest : public testing::Test
{
protected:
    /// Writes a stock file that names a shape, and the shape's file, unless `shape` is "".
    void writeStock(const std::string &folder, const std::string &file, const std::string &size,
                    const std::string &shape);
    /// Returns the lines written to the trace log since the test began, without times and numbers.
    /// On Windows all programs share the log.
    std::string traceLines() const;
    static std::streamoff endOfTrace();

    support::ScopedHome home;
    std::streamoff traceBegin = endOfTrace();
    support::TempFolder game;
    host::GameFiles files;
    support::ScriptedDialogs dialogs;
    MadeUpShapes shapes;
    RecordingCanvas canvas;
    install::Installation installation;
    support::MemorySettings settings;
    install::Environment environment{dialogs, files, settings, installation, shapes};
};

/// A stage with trains of wagons in the folder "Cars" of the private installation.
class TrainTest : public SceneTest
{
protected:
    TrainTest() { installation.SetLocation(game.Path()); }
    std::string car(const std::string &name) const { return game.At(kCars + name); }
    /// Writes a wagon with the shape "box.s" and further entries.
    void writeCar(const std::string &name, const std::string &length, const std::string &entries);
    void writeShape(const std::string &name) { game.Write(kCars + name, "shape"); }
    /// Loads a train of wagons; "Coal*" is flipped.
    void load(const std::string &wagons);
    void view(const std::string &shape, const std::string &vehicle = {});
    void finish();

    static constexpr const char *kCars = "Trains/Trainset/Cars/";

    std::string status;
    viewer::Stage stage{environment, &canvas, [this](const std::string &text) { status = text; }};
    StfFile file{files};
};
