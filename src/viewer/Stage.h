// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"
#include "viewer/ConsistLayout.h"
#include "viewer/KeptModels.h"
#include "viewer/Lacks.h"
#include "viewer/LoadMessages.h"
#include "viewer/SceneParts.h"
#include "viewer/ShapesAhead.h"
#include "viewer/TSView.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace korvat {
class Canvas;
enum class Ground;
} // namespace korvat

namespace viewer {

/// The content of a 3D window: one scene at a time, and how far the camera can move along it.
///
/// The Render functions begin a new scene; Step loads the rest piece by piece. They throw
/// host::RuntimeError: the errors of StfFile::Load, 91 with the file's name for missing blocks, 5
/// "No consist to display" with the file's name for a train without any blocks.
class Stage
{
public:
    using SetStatus = std::function<void(const std::string &)>;

    /// `canvas` must outlive the stage. It is null in a window without 3D, which still loads scenes
    /// for their reports.
    Stage(const install::Environment &environment, korvat::Canvas *canvas, SetStatus setStatus);
    ~Stage();

    /// Begins to show a consist file; its vehicles are in the Train Simulator folder
    /// `installFolder`.
    void RenderConsist(const std::string &file, const std::string &installFolder);
    /// Begins to show a loose consist, given by its TrainCfg block. `source` is the file of the
    /// block.
    void RenderLooseConsist(const StfNode &trainCfg, const std::string &installFolder,
                            const std::string &source);
    /// Begins to show a shape. One of an engine or wagon stands on a track, any other on plain
    /// ground. With the engine or wagon file `vehicle`, shows also what that adds; "" if only the
    /// shape is known.
    void RenderShape(const std::string &file, const std::string &vehicle = {});
    /// Shows or hides the loads of all vehicles, now and in later scenes.
    void ShowLoads(bool shown);
    /// Sets what is shown of the content, now and in later scenes.
    void SetOptions(const ViewOptions &options);
    const ViewOptions &Options() const { return m_options; }
    /// Turns the wheels as far as they roll in this time at the speed of the options, and draws a
    /// frame. Without a speed they stay at rest.
    void Roll(float seconds);
    /// Return the parts of the scene's shapes, and the levels of detail of its vehicles.
    std::vector<ShapeParts> Parts() const;
    std::vector<LevelDistances> Levels() const;
    /// From the next Render on, shows the loads and couplers of both simulators, whichever the user
    /// has chosen.
    void ShowAllAdded() { m_showsAllAdded = true; }
    /// True if the next piece has been read, so that Step will not wait for the disk.
    bool Ready() { return !m_ahead || m_ahead->Ready(); }
    /// Loads the next piece. Returns false when everything is loaded, and does nothing after that.
    /// Throws error 6 with the last piece of a train that is too long for the scroll bar; the train
    /// is shown nevertheless.
    bool Step();
    /// Ends loading early; keeps what is loaded, as if the scene were complete. Throws error 6 like
    /// Step.
    void Stop();
    bool Loading() const { return m_loading; }
    /// Reads again what has changed on the disk: shapes and textures at once, a train whose stock
    /// files have changed by the next steps. The camera stays, and no message box is shown. What
    /// cannot be read keeps its last good look, and the status gives the reason. Returns false if
    /// nothing has changed or the scene is still loading.
    bool FollowChanges();
    /// Returns the files of the scene and their folders, as paths on the disk.
    std::set<std::string> Places();
    int Total() const { return m_layout ? m_layout->Total() : 1; }
    int Done() const { return m_layout ? m_layout->Done() : 0; }

    /// Returns the ground of the scene.
    korvat::Ground Ground() const { return m_ground; }
    /// Returns the scene's part of the window's title; "" for a shape.
    const std::string &Caption() const { return m_caption; }
    /// Returns the scene, or null before the first Render.
    TSView *View() { return m_view.get(); }

    /// Returns how the vehicle or shape of an object of the scene is called. The object counts from
    /// 1.
    std::string NameOf(int place) const;

    /// Return the Z of the train's far end (0 or negative) and of its middle.
    float TrainEnd() const { return m_end; }
    float TrainMiddle() const { return m_end / 2; }
    /// Return the largest value of the scroll bar along the train, and the value of the middle.
    /// Both are 0 while loading and for a train that is too long.
    int ScrollMaximum() const { return m_scrollMaximum; }
    int ScrollMiddle() const { return m_scrollMiddle; }

    /// Returns the texture report of the scene, followed by the textures of the shapes that
    /// vehicles add, by what could not be loaded, or shown of lights, and by what levels and
    /// animations lack; "" if there is no scene.
    std::string Report() const;
    /// Returns the textures of the scene that are missing or cannot be read.
    std::vector<MissingTexture> MissingTextures() const;
    /// Detaches all objects from the canvas and drops the scene.
    void Close();

private:
    void setUp(korvat::Ground ground);
    void begin(const StfNode &trainCfg, const std::string &installFolder,
               const std::string &source);
    Reading reading() const;
    void beginTrain();
    void beginShape();
    void watchStock();
    bool stockHasChanged();
    bool reload(const std::set<std::string> &changed);
    void loadAgain();
    void reportReload();
    void collectProblems();
    void loadShape();
    void showProgress();
    void finish();
    void reportEnd();

    LoadMessages m_messages;
    KeptModels m_models;
    install::Environment m_environment; ///< with m_messages and m_models
    korvat::Canvas *m_canvas;
    SetStatus m_setStatus;
    std::unique_ptr<TSView> m_view;
    std::optional<ConsistLayout> m_layout;     ///< empty for a single shape
    std::optional<ShapesAhead> m_ahead;        ///< while loading
    std::shared_ptr<VehicleReader> m_vehicles; ///< of the scene
    std::string m_shapeFile;                   ///< still to load
    std::string m_shownShape, m_vehicleFile, m_caption;
    bool m_showsLoads = true, m_showsAllAdded = false;
    ViewOptions m_options;
    float m_travelled = 0; ///< metres since the wheels began to turn
    StfNode m_train;       ///< for m_layout
    std::string m_installFolder;
    std::map<std::string, FileOnDisk> m_stock; ///< by game path
    std::vector<std::string> m_problems, m_lacks;
    std::string m_vanished; ///< a shape that was missing in the last reload
    bool m_again = false;   ///< loading what was shown before
    bool m_loading = false;
    bool m_stopped = false;
    std::chrono::steady_clock::time_point m_nextShown; ///< no frame before this time
    float m_end = 0;
    int m_scrollMaximum = 0, m_scrollMiddle = 0;
    korvat::Ground m_ground{};
};

} // namespace viewer
