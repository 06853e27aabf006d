// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/ConsistLayout.h"
#include "viewer/LoadMessages.h"
#include "viewer/Services.h"
#include "viewer/ShapesAhead.h"
#include "viewer/TSView.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace korvat {
class Canvas;
}

namespace viewer {

/// What a 3D window shows: one scene at a time, and how far the camera may run along it.
///
/// The Render functions begin a new scene; Step loads the rest of it piece by piece. They throw
/// host::RuntimeError: the errors of StfFile::Load, 91 with the file's name for missing blocks, 5
/// "No consist to display" with the file's name for a train without any blocks.
class Stage
{
public:
    using SetStatus = std::function<void(const std::string &)>;

    /// The canvas, which must outlive the stage, is null for a window without 3D: scenes are loaded
    /// all the same, for their reports.
    Stage(const Services &services, korvat::Canvas *canvas, SetStatus setStatus);
    ~Stage();

    /// The consist file, from this Train Simulator folder.
    void RenderConsist(const std::string &file, const std::string &installFolder);
    /// A loose consist: its TrainCfg block. `source` is the file that it comes from.
    void RenderLooseConsist(const StfNode &trainCfg, const std::string &installFolder,
                            const std::string &source);
    void RenderShape(const std::string &file);
    /// Whether the next piece is read, so that Step will not wait for the disk.
    bool Ready() { return !m_ahead || m_ahead->Ready(); }
    /// Loads the next piece; false when all is there (after that it does nothing). Error 6 with the
    /// last one for a train that is too long for the scroll bar; it stands there all the same.
    bool Step();
    /// Ends the loading early; what is there stays, as if it were all. Error 6 as Step.
    void Stop();
    bool Loading() const { return m_loading; }
    int Total() const { return m_layout ? m_layout->Total() : 1; }
    int Done() const { return m_layout ? m_layout->Done() : 0; }

    /// What the window's title says about the scene, "" for a shape.
    const std::string &Caption() const { return m_caption; }
    /// The scene, or null before the first Render.
    TSView *View() { return m_view.get(); }

    /// Z of the far end of the train, 0 or negative, and of its middle.
    float TrainEnd() const { return m_end; }
    float TrainMiddle() const { return m_end / 2; }
    /// The scroll bar along the train: its largest value, and the one for the middle. Both are 0
    /// while loading and for a train that is too long.
    int ScrollMaximum() const { return m_scrollMaximum; }
    int ScrollMiddle() const { return m_scrollMiddle; }

    /// The texture report of what is shown, for a train followed by what could not be loaded; ""
    /// when there is nothing.
    std::string Report() const;
    /// Lets every object go of the canvas and drops the scene.
    void Close();

private:
    void setUp();
    void begin(const StfNode &trainCfg, const std::string &installFolder,
               const std::string &source);
    void loadShape();
    void showProgress();
    void finish();
    void reportEnd();

    LoadMessages m_messages;
    Services m_services; ///< with m_messages as their dialogs
    korvat::Canvas *m_canvas;
    SetStatus m_setStatus;
    std::unique_ptr<TSView> m_view;
    std::optional<ConsistLayout> m_layout; ///< nothing for a single shape
    std::optional<ShapesAhead> m_ahead;    ///< while loading
    std::string m_shapeFile, m_caption;
    std::vector<std::string> m_problems;
    bool m_loading = false;
    bool m_stopped = false;
    std::chrono::steady_clock::time_point m_nextShown; ///< not before this time
    float m_end = 0;
    int m_scrollMaximum = 0, m_scrollMiddle = 0;
};

} // namespace viewer
