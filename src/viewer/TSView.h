// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/CameraPose.h"
#include "viewer/Overlays.h"
#include "viewer/TSViewObject.h"
#include "viewer/ViewOptions.h"

#include <memory>
#include <string>
#include <vector>

namespace korvat {
class Canvas;
}

namespace viewer {

/// The objects of a scene in order of insertion, each under a unique key. Positions count from 1.
class ViewObjects
{
public:
    /// Throws error 457 if the key is in use.
    void Add(std::shared_ptr<TSViewObject> object, const std::string &key);
    int Count() const { return static_cast<int>(m_entries.size()); }
    /// Return an object. Throw error 9 for a position outside the list or an unknown key.
    TSViewObject &Item(int place) const;
    TSViewObject &Item(const std::string &key) const;
    void Clear() { m_entries.clear(); }

private:
    struct Entry
    {
        std::string key;
        std::shared_ptr<TSViewObject> object;
    };
    std::vector<Entry> m_entries;
};

} // namespace viewer

/// The scene of one window: its objects, a camera, and the canvas that they are drawn on. Draws
/// only on demand.
///
/// Its construction and destruction each write a line to the trace log: "> tsview " and "< tsview
/// ", followed by the scene's address as a decimal number.
class TSView : public viewer::CameraPose
{
public:
    explicit TSView(const install::Environment &environment);
    ~TSView();
    TSView(const TSView &) = delete;
    TSView &operator=(const TSView &) = delete;

    korvat::Canvas *Viewer = nullptr; ///< null for none; must outlive the scene's use of it
    viewer::ViewObjects Models;
    bool FullyStarted = false; ///< true after Initialise found a canvas

    /// Starts the canvas; does nothing without one.
    void Initialise();
    /// Loads a shape and adds it to Models under the key, moved to the place and then turned by
    /// `degrees` about the scene's origin. If the shape cannot be loaded, reports that in one
    /// message box and returns false. Throws error 457 if the key is in use.
    bool LoadShapeInToViewer(const std::string &shapeId, const std::string &shapeFile, float x,
                             float y, float z, float degrees);
    /// Shows or hides the loads of vehicles from the next frame on; at first they are shown.
    void ShowLoads(bool shown) { m_showsLoads = shown; }
    bool ShowsLoads() const { return m_showsLoads; }
    /// Sets what the next frames show of the content.
    void SetOptions(const viewer::ViewOptions &options);
    const viewer::ViewOptions &Options() const { return m_options; }
    /// Sets how far the train has rolled in the next frames, in metres. 0, the first value, shows
    /// all parts at rest.
    void SetTravelled(float metres) { m_travelled = metres; }
    /// Restores the canvas and the models after a resize, and draws a frame.
    void RefreshForm();
    /// Passes the camera to the canvas and draws a frame.
    void ResetCamera();
    /// Draws a frame from a pose other than the camera's own.
    void ShowFrom(const viewer::CameraPose &pose);
    /// Keeps what is around the target of a pose clear of the haze, however far the camera is from
    /// it.
    void FitHaze(const viewer::CameraPose &pose);
    /// Draws Models if the canvas accepts a frame now.
    void ShowModels();
    /// Releases the textures of all models, detaches the models from the canvas, and empties
    /// Models.
    void DestroyModels();

    /// Metres from a camera near its target to the first and to opaque haze.
    static constexpr long kRangeNear = 50, kRangeFar = 600;

private:
    void yield();

    long m_hazeShift = 0; ///< metres by which the haze is farther away

    install::Environment m_environment;
    bool m_showsLoads = true;
    viewer::ViewOptions m_options;
    float m_travelled = 0;
    std::shared_ptr<korvat::TextureChoice> m_choice; ///< of the options
    viewer::Overlays m_overlays;
};
