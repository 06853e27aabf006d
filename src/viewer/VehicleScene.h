// SPDX-License-Identifier: MIT
#pragma once

#include "host/UnansweredDialogs.h"
#include "install/Environment.h"
#include "korvat/model/Geometry.h"
#include "viewer/TSView.h"
#include "viewer/VehicleReader.h"

#include <optional>
#include <string>
#include <vector>

namespace korvat {
class SceneCanvas;
}

namespace viewer {

/// The direction from which a vehicle is seen, and how close.
struct VehicleView
{
    static constexpr float kTurn = 0.7f, kTilt = 0.22f;

    float turn = kTurn; ///< radians about the vertical axis, from the right side to the front
    float tilt = kTilt; ///< radians above the horizon
    float zoom = 1;     ///< 1 shows the whole vehicle, 2 half of its length

    friend bool operator==(const VehicleView &, const VehicleView &) = default;
};

/// One vehicle, with what it adds to its shape, on a plain background, for small pictures of it.
/// Shows no message boxes. Use it on one thread only.
class VehicleScene
{
public:
    /// Increase this number when the same files give another picture.
    static constexpr int kVersion = 2;

    /// `canvas`, which becomes a studio, must outlive the scene.
    VehicleScene(const install::Environment &environment, korvat::SceneCanvas &canvas);
    ~VehicleScene();

    /// Loads the vehicle of an engine or wagon file in place of the previous one. Throws
    /// RuntimeError like ReadStockShapeToShow, 53 if the shape is missing, 5 if it cannot be read;
    /// the scene is then empty.
    void Load(const std::string &stockFile, const Reading &reading);
    /// Returns the file of the vehicle, "" for none, and how it was read.
    const std::string &StockFile() const { return m_stockFile; }
    const Reading &HowRead() const { return m_reading; }
    /// Returns the visible defects, such as missing textures, one sentence each.
    const std::vector<std::string> &Problems() const { return m_problems; }
    /// Shows or hides the loads in the next pictures; at first they are shown.
    void ShowLoads(bool shown);
    /// Returns the record of the files that the vehicle was made from (host::FilesUsed); "" if one
    /// of them is too new for a record.
    const std::string &Record() const { return m_record; }

    /// Chooses between a bright and a dark background for the next pictures; at first it is bright.
    void SetDark(bool dark) { m_dark = dark; }
    /// Makes the frame of an image with this ratio of width to height, and the vehicle in its
    /// middle.
    void Look(const VehicleView &view, float widthByHeight);

private:
    /// Keeps the messages of a scene instead of showing them.
    class KeptMessages : public host::UnansweredDialogs
    {
    public:
        host::DialogAnswer Message(const std::string &text, const std::string &title,
                                   host::DialogIcon icon, host::DialogButtons buttons) override;
        std::string first;
    };
    void loadShape(const std::string &stockFile);
    void addShapes(VehicleReader &vehicles, const std::string &stockFile);

    KeptMessages m_messages;
    install::Environment m_environment; ///< with m_messages as its dialogs
    TSView m_view;
    std::string m_stockFile, m_record;
    Reading m_reading;
    korvat::SceneCanvas &m_canvas;
    bool m_showsLoads = true, m_dark = false;
    std::vector<std::string> m_problems;
};

/// Returns the pose of a camera that shows the whole box in an image with this ratio of width to
/// height, with some space around it.
CameraPose PoseToShow(const korvat::Bounds &box, const VehicleView &view, float widthByHeight);

} // namespace viewer
