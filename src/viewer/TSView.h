// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/CameraPose.h"
#include "viewer/TSViewObject.h"

#include <memory>
#include <string>
#include <vector>

namespace korvat {
class Canvas;
}

namespace viewer {

/// The objects of a scene in the order in which they came, each under a key of its own. Places
/// count from 1.
class ViewObjects
{
public:
    /// Error 457 for a key that is there already.
    void Add(std::shared_ptr<TSViewObject> object, const std::string &key);
    int Count() const { return static_cast<int>(m_entries.size()); }
    /// Error 9 outside the list, and for a key that is not there.
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

/// The scene of one window: the objects that stand in it, a camera, and the canvas on which they
/// are drawn. Drawing happens on demand alone.
///
/// Creation and end leave a line each in the trace log: "> tsview " and "< tsview ", followed by
/// the scene's address as a decimal number.
class TSView : public viewer::CameraPose
{
public:
    explicit TSView(const viewer::Services &services);
    ~TSView();
    TSView(const TSView &) = delete;
    TSView &operator=(const TSView &) = delete;

    korvat::Canvas *Viewer = nullptr; ///< null for none; must outlive the scene's use of it
    viewer::ViewObjects Models;
    /// Where shapes have their textures, as seen from their folder.
    static constexpr const char *kTexturePath = "..\\textures\\";
    bool FullyStarted = false; ///< true after Initialise found a canvas

    /// Starts the canvas; does nothing without one.
    void Initialise();
    /// Loads a shape and adds it to Models under the key, moved to the place and then turned by
    /// `degrees` about the scene's origin. Reports a shape that cannot be loaded in one message box
    /// and returns false. Error 457 for a key that is there already.
    bool LoadShapeInToViewer(const std::string &shapeId, const std::string &shapeFile, float x,
                             float y, float z, float degrees);
    /// After a resize: the canvas and the models come back, and a frame is drawn.
    void RefreshForm();
    /// Hands the camera to the canvas and draws a frame.
    void ResetCamera();
    /// Draws what Models holds, when the canvas takes a frame now.
    void ShowModels();
    /// Lets every model go of its textures and of the canvas, and empties Models.
    void DestroyModels();

private:
    void yield();

    viewer::Services m_services;
};
