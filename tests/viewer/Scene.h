// SPDX-License-Identifier: MIT
#pragma once

#include "host/GameFiles.h"
#include "korvat/draw/Canvas.h"
#include "korvat/draw/Renderer.h"
#include "korvat/model/ModelSource.h"
#include "support/Environment.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "viewer/Services.h"

#include <gtest/gtest.h>

#include <array>
#include <ios>
#include <map>
#include <mutex>
#include <string>

/// A canvas that writes down what is asked of it, a word each, and draws on no device.
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
    void ProcessEvents() override { log += "yield "; }

    std::string TakeLog() { return std::exchange(log, {}); }

    korvat::Renderer renderer;
    std::array<float, 6> camera{};
    std::string log;
    bool ready = true;
};

/// Shapes that the test makes up: every file that exists loads, with the textures and the length
/// that were given for its name. "bad.s" is broken; "heavy.s", "heavy.ace" and "odd.s" throw what
/// no model should.
class MadeUpShapes : public korvat::ModelSource
{
public:
    korvat::LoadedModel LoadModel(const std::string &path) override;
    korvat::LoadedTexture LoadTexture(const std::string &folder, const std::string &texturePath,
                                      const std::string &name) override;

    std::map<std::string, std::vector<std::string>> textures; ///< by the shape's file name
    std::string asked; ///< folders and paths of the pictures asked for, relative to nothing
    float length = 8;
    std::mutex mutex; ///< who holds it keeps shapes from being read
};

/// An installation of its own, dialogs that answer from a script, made-up shapes.
class SceneTest : public testing::Test
{
protected:
    /// Writes a stock file that names a shape, and the shape's file; "" for no such file.
    void writeStock(const std::string &folder, const std::string &file, const std::string &size,
                    const std::string &shape);
    /// What was written to the trace log since the test began: the lines without their times and
    /// numbers. On Windows all programs share the log.
    std::string traceLines() const;
    static std::streamoff endOfTrace();

    support::ScopedHome home;
    std::streamoff traceBegin = endOfTrace();
    support::TempFolder game;
    host::GameFiles files;
    support::ScriptedDialogs dialogs;
    MadeUpShapes shapes;
    RecordingCanvas canvas;
    viewer::Services services{files, dialogs, shapes};
};
