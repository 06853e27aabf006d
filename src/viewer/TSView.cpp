// SPDX-License-Identifier: MIT
#include "viewer/TSView.h"

#include "host/Dialogs.h"
#include "host/Folders.h"
#include "host/RuntimeError.h"
#include "korvat/draw/Canvas.h"
#include "viewer/Numbers.h"
#include "viewer/ScenePoses.h"
#include "viewer/Seasons.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

using host::ErrorNumber;
using host::RuntimeError;

namespace viewer {

void ViewObjects::Add(std::shared_ptr<TSViewObject> object, const std::string &key)
{
    if (std::any_of(m_entries.begin(), m_entries.end(),
                    [&key](const Entry &entry) { return entry.key == key; }))
        throw RuntimeError(ErrorNumber::KeyInUse, key + ": the scene has a model of this name");
    m_entries.push_back({key, std::move(object)});
}

TSViewObject &ViewObjects::Item(int place) const
{
    if (place < 1 || place > Count())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                           "object " + std::to_string(place) + " of " + std::to_string(Count()));
    return *m_entries[static_cast<std::size_t>(place - 1)].object;
}

TSViewObject &ViewObjects::Item(const std::string &key) const
{
    for (const Entry &entry : m_entries)
        if (entry.key == key)
            return *entry.object;
    throw RuntimeError(ErrorNumber::SubscriptOutOfRange,
                       key + ": the scene has no model of this name");
}

} // namespace viewer

namespace {

constexpr float kHazeFollows = 100; ///< metres from the target: from here on, the haze keeps away
constexpr float kFarthestHaze = 100000;

std::string identity(const TSView *view)
{
    return std::to_string(reinterpret_cast<std::uintptr_t>(view));
}

} // namespace

TSView::TSView(const install::Environment &environment)
    : m_environment(environment)
{
    host::AppendTraceLine("> tsview " + identity(this));
}

TSView::~TSView()
{
    Models.Clear();
    host::AppendTraceLine("< tsview " + identity(this));
}

void TSView::Initialise()
{
    if (!Viewer)
        return;
    Viewer->CanvasStart();
    Viewer->CanvasBeginRendering();
    FullyStarted = true;
}

bool TSView::LoadShapeInToViewer(const std::string &shapeId, const std::string &shapeFile, float x,
                                 float y, float z, float degrees)
{
    auto object = std::make_shared<TSViewObject>(m_environment);
    object->SetRenderer(Viewer ? Viewer->Device() : nullptr);
    object->Model().SetTexturePath(TSViewObject::kTexturePath);
    object->SetChoice(m_choice);
    if (!object->LoadShape(shapeFile)) {
        // The object itself has reported a missing file, and leaves no error text.
        if (!object->LastError().empty())
            m_environment.dialogs.Message(object->LastError(), "Error Loading Shape",
                                          host::DialogIcon::Critical);
        return false;
    }
    object->MoveAndRotateTo(x, y, z, viewer::DegToRad(degrees));
    Models.Add(std::move(object), shapeId);
    return true;
}

void TSView::SetOptions(const viewer::ViewOptions &options)
{
    const bool sameTextures = viewer::ShowSameTextures(m_options, options);
    m_options = options;
    if (sameTextures)
        return;
    m_choice = viewer::ChooseTextures(m_environment.files, options);
    for (int place = 1; place <= Models.Count(); ++place)
        Models.Item(place).SetChoice(m_choice);
}

void TSView::RefreshForm()
{
    yield();
    if (!Viewer)
        return;
    Viewer->CanvasRestore();
    for (int place = 1; place <= Models.Count(); ++place)
        Models.Item(place).Model().Restore();
    if (Viewer->Device())
        ShowModels();
    yield();
}

void TSView::ResetCamera()
{
    ShowFrom(*this);
}

void TSView::ShowFrom(const viewer::CameraPose &pose)
{
    if (Viewer)
        Viewer->SetCamera(pose.CamX, pose.CamY, pose.CamZ, pose.LookAtX, pose.LookAtY,
                          pose.LookAtZ);
    ShowModels();
}

void TSView::FitHaze(const viewer::CameraPose &pose)
{
    const float distance =
        std::hypot(pose.CamX - pose.LookAtX, pose.CamY - pose.LookAtY, pose.CamZ - pose.LookAtZ);
    const long shift = std::lround(std::clamp(distance - kHazeFollows, 0.0f, kFarthestHaze));
    if (!Viewer || shift == m_hazeShift)
        return;
    m_hazeShift = shift;
    Viewer->SetRangeNear(kRangeNear + shift);
    Viewer->SetRangeFar(kRangeFar + shift);
}

void TSView::ShowModels()
{
    if (!FullyStarted)
        return;
    korvat::Renderer *renderer = Viewer->Device();
    if (renderer)
        viewer::Overlays::SetLight(*renderer, Models, m_options);
    if (Viewer->BeginFrame()) {
        viewer::ScenePoses poses(m_options, m_travelled);
        const int level = std::max(m_options.level, 1);
        for (int place = 1; place <= Models.Count(); ++place) {
            poses.Apply(Models.Item(place));
            Models.Item(place).Model().Render(level, -1.0f);
            Models.Item(place).RenderAdded(m_showsLoads, level);
        }
        if (renderer)
            m_overlays.AddTo(*renderer, Models, m_options);
        Viewer->EndFrame();
    }
    yield();
}

void TSView::DestroyModels()
{
    for (int place = 1; place <= Models.Count(); ++place)
        Models.Item(place).Destroy();
    Models.Clear();
}

void TSView::yield()
{
    if (Viewer)
        Viewer->ProcessEvents();
}
