// SPDX-License-Identifier: MIT
#include "viewer/VehicleScene.h"

#include "host/FilesUsed.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "korvat/draw/SceneCanvas.h"
#include "viewer/AddShapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

using host::ErrorNumber;
using host::RuntimeError;
using korvat::Vec3;

namespace viewer {
namespace {

/// A long lens keeps the lines of a vehicle nearly parallel.
constexpr float kLensDegrees = 22, kSpace = 1.06f;
constexpr korvat::Tint kBright{0.80f, 0.84f, 0.88f, 1}, kDark{0.20f, 0.22f, 0.25f, 1};
constexpr long kHazeFrom = 2000, kHazeTo = 2500;   ///< metres: behind every vehicle
constexpr float kSmallest = 0.5f, kLargest = 1000; ///< metres that a picture can show

/// Returns the corners of a box in a world.
std::array<Vec3, 8> cornersOf(const korvat::Bounds &box, const korvat::Transform &world)
{
    std::array<Vec3, 8> corners;
    for (std::size_t i = 0; i < corners.size(); ++i)
        corners[i] = korvat::TransformPoint({i & 1 ? box.most.x : box.least.x,
                                             i & 2 ? box.most.y : box.least.y,
                                             i & 4 ? box.most.z : box.least.z},
                                            world);
    return corners;
}

/// Takes a shape into the box around everything that is shown.
void takeIn(std::optional<korvat::Bounds> &box, const ShapeModel &shape,
            const korvat::Transform &world)
{
    if (!shape.Loaded() || shape.Loaded()->mesh.indices.empty())
        return;
    for (const Vec3 &corner : cornersOf(shape.Loaded()->box, world)) {
        if (!box)
            box = {corner, corner};
        box->least = {std::min(box->least.x, corner.x), std::min(box->least.y, corner.y),
                      std::min(box->least.z, corner.z)};
        box->most = {std::max(box->most.x, corner.x), std::max(box->most.y, corner.y),
                     std::max(box->most.z, corner.z)};
    }
}

/// Returns the box around all models, which have been moved to their places, and what they add.
korvat::Bounds boundsOf(const ViewObjects &models, bool withLoads)
{
    std::optional<korvat::Bounds> box;
    for (int place = 1; place <= models.Count(); ++place) {
        const TSViewObject &object = models.Item(place);
        const korvat::Transform world = object.Model().WorldMatrix();
        takeIn(box, object.Model(), world);
        for (const TSViewObject::Added &added : object.AddedShapes())
            if (withLoads || !added.isLoad)
                takeIn(box, added.model, added.place * world);
    }
    return box.value_or(korvat::Bounds{{-1, 0, -1}, {1, 2, 1}});
}

} // namespace

CameraPose PoseToShow(const korvat::Bounds &box, const VehicleView &view, float widthByHeight)
{
    const Vec3 middle = (box.least + box.most) * 0.5f;
    // From the camera to the vehicle; the right side of a vehicle is towards X, its front towards
    // Z.
    const Vec3 ahead{-std::cos(view.tilt) * std::cos(view.turn), -std::sin(view.tilt),
                     -std::cos(view.tilt) * std::sin(view.turn)};
    const Vec3 right = korvat::Normalised(korvat::Cross({0, 1, 0}, ahead));
    const Vec3 up = korvat::Cross(ahead, right);
    const float high = std::tan(kLensDegrees * std::numbers::pi_v<float> / 360) / kSpace;
    const float wide = high * widthByHeight;
    float distance = kSmallest;
    for (const Vec3 &corner : cornersOf(box, korvat::Translation(middle * -1.0f))) {
        const float nearer = korvat::Dot(corner, ahead);
        distance = std::max({distance, std::abs(korvat::Dot(corner, right)) / wide - nearer,
                             std::abs(korvat::Dot(corner, up)) / high - nearer});
    }
    distance = std::min(distance, kLargest) / std::max(view.zoom, 0.1f);
    const Vec3 eye = middle - ahead * distance;
    return {eye.x, eye.y, eye.z, middle.x, middle.y, middle.z};
}

host::DialogAnswer VehicleScene::KeptMessages::Message(const std::string &text, const std::string &,
                                                       host::DialogIcon, host::DialogButtons)
{
    if (first.empty())
        first = text;
    return host::DialogAnswer::Ok;
}

VehicleScene::VehicleScene(const install::Environment &environment, korvat::SceneCanvas &canvas)
    : m_environment{m_messages, environment.files, environment.settings, environment.installation,
                    environment.shapes}
    , m_view(m_environment)
    , m_canvas(canvas)
{
    canvas.BecomeStudio(kBright, kLensDegrees);
    canvas.SetRangeFar(kHazeTo);
    canvas.SetRangeNear(kHazeFrom);
    m_view.Viewer = &canvas;
    m_view.Initialise();
}

VehicleScene::~VehicleScene()
{
    m_view.DestroyModels();
}

void VehicleScene::Load(const std::string &stockFile, const Reading &reading)
{
    m_reading = reading;
    m_problems.clear();
    m_stockFile.clear();
    m_record.clear();
    m_messages.first.clear();
    // The last frame holds the previous models, so textures that both share are not read again.
    m_view.DestroyModels();
    const host::FilesUsed used;
    loadShape(stockFile);
    m_stockFile = stockFile;
    if (used.IsSettled())
        m_record = used.Record();
}

void VehicleScene::loadShape(const std::string &stockFile)
{
    VehicleReader vehicles(m_environment.files, m_reading);
    const StockShape stock = vehicles.Shape(stockFile);
    if (!stock.whyNoShape.empty())
        throw RuntimeError(ErrorNumber::ObjectNotSet, stock.whyNoShape);
    if (!m_environment.files.FileExists(stock.shapeFile))
        throw RuntimeError(ErrorNumber::FileNotFound, stock.shapeFile + ": there is no such file");
    if (!m_view.LoadShapeInToViewer("Shape", stock.shapeFile, 0, 0, 0, 0))
        throw RuntimeError(ErrorNumber::InvalidCall, m_messages.first);
    addShapes(vehicles, stockFile);
}

void VehicleScene::addShapes(VehicleReader &vehicles, const std::string &stockFile)
{
    TSViewObject &object = m_view.Models.Item(1);
    AddMissing(object.Model().Problems(), m_problems);
    const Ends ends{vehicles.Length(stockFile).value_or(LengthOf(object))};
    AddMissing(AddShapes(object, vehicles, stockFile, ends), m_problems);
}

void VehicleScene::ShowLoads(bool shown)
{
    m_showsLoads = shown;
    m_view.ShowLoads(shown);
}

void VehicleScene::Look(const VehicleView &view, float widthByHeight)
{
    m_canvas.BecomeStudio(m_dark ? kDark : kBright, kLensDegrees);
    static_cast<CameraPose &>(m_view) =
        PoseToShow(boundsOf(m_view.Models, m_showsLoads), view, widthByHeight);
    m_view.ResetCamera();
}

} // namespace viewer
