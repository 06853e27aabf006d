// SPDX-License-Identifier: MIT
#pragma once

#include "gl/OffscreenCanvas.h"
#include "host/GameFiles.h"
#include "install/Environment.h"
#include "install/Installation.h"
#include "korvat/model/ModelLibrary.h"
#include "support/Environment.h"
#include "support/MemorySettings.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "viewer/TSView.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <gtest/gtest.h>

#include <memory>
#include <string>

/// A scene that is painted off-screen, and a folder for its files. Skips the test where there is no
/// OpenGL.
class OffscreenScene : public testing::Test
{
protected:
    /// The size of the pictures, in pixels.
    OffscreenScene(int width, int height)
        : canvas(korvat::OffscreenCanvas::Create(width, height, whyNone))
    {
        view.Viewer = canvas.get();
        view.Initialise();
    }
    void SetUp() override
    {
        if (!canvas)
            GTEST_SKIP() << whyNone;
    }
    void TearDown() override { view.DestroyModels(); }

    /// Adds a shape at this place along the track.
    void Load(const std::string &shapeFile, float z, float degrees)
    {
        const std::string key = std::to_string(view.Models.Count());
        ASSERT_TRUE(view.LoadShapeInToViewer(key, shapeFile, 0, 0, z, degrees)) << dialogs.Log();
    }

    support::ScopedHome home;
    support::TempFolder folder;
    host::GameFiles files;
    support::ScriptedDialogs dialogs;
    korvat::ModelLibrary shapes{files};
    std::string whyNone;
    std::unique_ptr<korvat::OffscreenCanvas> canvas; ///< null if there is no OpenGL
    install::Installation installation;
    support::MemorySettings settings;
    TSView view{install::Environment{dialogs, files, settings, installation, shapes}};
};
