// SPDX-License-Identifier: MIT
#include "viewer/Stage.h"

#include "host/Path.h"
#include "host/RuntimeError.h"
#include "install/Train.h"
#include "korvat/draw/Canvas.h"
#include "viewer/AddShapes.h"
#include "viewer/Numbers.h"
#include "viewer/OrbitCamera.h"
#include "viewer/StockShape.h"
#include "viewer/TextureReport.h"

#include <algorithm>
#include <cmath>
#include <utility>

using host::ErrorNumber;
using host::RuntimeError;

namespace viewer {
namespace {

constexpr std::chrono::milliseconds kBetweenFrames(150);
/// Metres after which wheels begin again, so that their angles stay exact.
constexpr float kFarthestRoll = 10000;

} // namespace

Stage::Stage(const install::Environment &environment, korvat::Canvas *canvas, SetStatus setStatus)
    : m_messages(environment.dialogs)
    , m_models(environment.shapes, environment.files)
    , m_environment{m_messages, environment.files, environment.settings, environment.installation,
                    m_models}
    , m_canvas(canvas)
    , m_setStatus(std::move(setStatus))
{
}

Stage::~Stage()
{
    Close();
}

void Stage::setUp(korvat::Ground ground)
{
    Close();
    m_view = std::make_unique<TSView>(m_environment);
    m_view->Viewer = m_canvas;
    m_ground = ground;
    if (m_canvas)
        m_canvas->SetGround(ground);
    m_view->ShowLoads(m_showsLoads);
    m_view->SetOptions(m_options);
    m_travelled = 0;
    m_view->Initialise();
    OrbitCamera(*m_view).Reset(0);
    m_view->ResetCamera();
    if (m_canvas) {
        m_canvas->SetRangeNear(TSView::kRangeNear);
        m_canvas->SetRangeFar(TSView::kRangeFar);
    }
    m_loading = true;
    m_stopped = false;
    m_nextShown = {};
}

void Stage::RenderConsist(const std::string &file, const std::string &installFolder)
{
    m_setStatus("Loading " + file);
    try {
        const StfNode trainCfg = install::RequireTrain(StfFile::Read(m_environment.files, file));
        begin(trainCfg, installFolder, file);
        m_caption = "Consist - " + install::TrainTitle(trainCfg);
    } catch (const RuntimeError &error) {
        m_setStatus(error.what()); // replaces "Loading ..."
        throw;
    }
}

void Stage::RenderLooseConsist(const StfNode &trainCfg, const std::string &installFolder,
                               const std::string &source)
{
    if (!trainCfg)
        throw RuntimeError(ErrorNumber::ObjectNotSet, source + ": there is no TrainCfg block");
    begin(trainCfg, installFolder, source);
    m_caption = "Loose Consist - " + install::TrainTitle(trainCfg);
}

void Stage::begin(const StfNode &trainCfg, const std::string &installFolder,
                  const std::string &source)
{
    if (trainCfg.Children().Count() == 0) {
        const std::string title = install::TrainTitle(trainCfg);
        throw RuntimeError(ErrorNumber::InvalidCall, "No consist to display: " + source +
                                                         (title.empty() ? "" : " (" + title + ")"));
    }
    setUp(korvat::Ground::Track);
    m_train = trainCfg;
    m_installFolder = installFolder;
    beginTrain();
}

/// Places the vehicles of the train from its beginning.
void Stage::beginTrain()
{
    m_vehicles = std::make_shared<VehicleReader>(m_environment.files, reading());
    m_layout.emplace(m_environment, m_installFolder, m_train, *m_view, m_vehicles);
    watchStock();
    m_ahead.emplace(m_environment, m_vehicles, m_layout->StockFiles());
}

Reading Stage::reading() const
{
    Reading chosen = ChosenReading(m_environment);
    chosen.allAdded = m_showsAllAdded;
    return chosen;
}

void Stage::ShowLoads(bool shown)
{
    m_showsLoads = shown;
    if (!m_view)
        return;
    m_view->ShowLoads(shown);
    m_view->ShowModels();
}

void Stage::SetOptions(const ViewOptions &options)
{
    m_options = options;
    if (m_options.speed <= 0)
        m_travelled = 0;
    if (!m_view)
        return;
    m_view->SetOptions(options);
    m_view->SetTravelled(m_travelled);
    m_view->ShowModels();
}

void Stage::Roll(float seconds)
{
    if (!m_view || m_options.speed <= 0 || m_loading)
        return;
    m_travelled = std::fmod(m_travelled + m_options.speed * seconds, kFarthestRoll);
    m_view->SetTravelled(m_travelled);
    m_view->ShowModels();
}

std::vector<ShapeParts> Stage::Parts() const
{
    return m_view ? PartsOf(m_view->Models) : std::vector<ShapeParts>();
}

std::vector<LevelDistances> Stage::Levels() const
{
    return m_view ? LevelsOf(m_view->Models) : std::vector<LevelDistances>();
}

/// Loads the shape, and what its vehicle adds.
void Stage::beginShape()
{
    m_shapeFile = m_shownShape;
    m_vehicles = std::make_shared<VehicleReader>(m_environment.files, reading());
    watchStock();
    m_ahead.emplace(m_environment, m_vehicles,
                    std::vector{m_vehicleFile.empty() ? m_shapeFile : m_vehicleFile});
}

void Stage::RenderShape(const std::string &file, const std::string &vehicle)
{
    m_setStatus("Loading " + file);
    const bool rolls = !vehicle.empty() || IsStockShape(m_environment.files, file);
    setUp(rolls ? korvat::Ground::Track : korvat::Ground::Plain);
    m_shownShape = file;
    m_vehicleFile = vehicle;
    beginShape();
    m_caption.clear();
}

bool Stage::Step()
{
    if (!m_loading)
        return false;
    m_loading = false; // also if one of these throws
    const auto held = m_ahead ? m_ahead->Take() : ShapesAhead::Held();
    const bool more = m_layout ? m_layout->Step() : !m_shapeFile.empty();
    if (!more) {
        finish();
        return false;
    }
    if (!m_layout)
        loadShape();
    showProgress();
    m_loading = true;
    return true;
}

/// Draws only occasionally, because drawing takes longer than loading most vehicles.
void Stage::showProgress()
{
    const auto now = std::chrono::steady_clock::now();
    if (m_again || now < m_nextShown) // again: the picture stays until the new one is complete
        return;
    m_view->ShowModels();
    m_nextShown = now + kBetweenFrames;
}

void Stage::loadShape()
{
    if (!m_view->LoadShapeInToViewer("Shape", std::exchange(m_shapeFile, {}), 0, 0, 0, 0))
        return;
    collectProblems();
    TSViewObject &object = m_view->Models.Item(1);
    if (!m_vehicleFile.empty())
        m_lacks = AddShapes(object, *m_vehicles, m_vehicleFile,
                            {m_vehicles->Length(m_vehicleFile).value_or(LengthOf(object))});
}

void Stage::collectProblems()
{
    m_problems.clear();
    for (int place = 1; place <= m_view->Models.Count(); ++place)
        for (const std::string &problem : m_view->Models.Item(place).Model().Problems())
            if (std::find(m_problems.begin(), m_problems.end(), problem) == m_problems.end())
                m_problems.push_back(problem);
}

void Stage::watchStock()
{
    m_stock.clear();
    const std::vector<std::string> files =
        m_layout ? m_layout->StockFiles() : std::vector{m_vehicleFile};
    for (const std::string &file : files)
        if (!file.empty() && !m_stock.contains(file))
            m_stock[file] = FileOnDisk::Of(m_environment.files, file);
}

bool Stage::stockHasChanged()
{
    bool changed = false;
    for (auto &[path, known] : m_stock) {
        FileOnDisk now = FileOnDisk::Of(m_environment.files, path);
        changed = changed || known != now;
        known = std::move(now);
    }
    return changed;
}

std::set<std::string> Stage::Places()
{
    std::set<std::string> places;
    m_models.AddPlaces(places);
    for (const auto &[path, file] : m_stock)
        if (!file.place.empty())
            places.insert(file.place);
    return places;
}

bool Stage::FollowChanges()
{
    if (!m_view || m_loading)
        return false;
    const bool stock = stockHasChanged();
    const std::set<std::string> changed = m_models.TakeChanges();
    if (!stock && changed.empty())
        return false;
    if (stock || !reload(changed)) {
        loadAgain();
        return true;
    }
    collectProblems();
    m_view->ShowModels();
    reportReload();
    return true;
}

/// Loads the shapes of the scene that have changed or use a changed texture. Returns false if a
/// file belongs to no object: a vehicle that could not be shown may have become readable.
bool Stage::reload(const std::set<std::string> &changed)
{
    std::set<std::string> left = changed;
    m_vanished.clear();
    for (int place = 1; place <= m_view->Models.Count(); ++place) {
        TSViewObject &object = m_view->Models.Item(place);
        const std::string shape = object.ShapeFile();
        const std::string folder(host::path::FolderWithSeparator(shape));
        std::vector<std::string> keys{KeptModels::KeyOf(shape)};
        for (int texture = 1; texture <= object.NumTextures(); ++texture)
            keys.push_back(KeptModels::KeyOf(folder, object.Texture(texture)));
        bool uses = false;
        for (const std::string &key : keys) {
            uses = uses || changed.contains(key);
            left.erase(key);
        }
        if (uses && m_environment.files.FileExists(shape))
            object.LoadShape(shape);
        else if (uses)
            m_vanished = shape + " is missing";
    }
    return left.empty();
}

/// Begins to load the whole scene again. The canvas keeps its picture, and with it all models, so
/// that unchanged files are not read.
void Stage::loadAgain()
{
    m_again = true;
    m_loading = true;
    m_messages.Clear(true);
    m_stopped = false;
    m_view->DestroyModels();
    m_layout ? beginTrain() : beginShape();
}

void Stage::reportReload()
{
    std::vector<std::string> problems = m_models.TakeProblems();
    if (!m_vanished.empty())
        problems.push_back(m_vanished);
    m_setStatus(problems.empty() ? "The files have changed; the view shows their new content."
                                 : problems.front() + "; the view keeps what it could read last.");
}

void Stage::Stop()
{
    if (!m_loading)
        return;
    m_loading = false;
    m_stopped = true;
    finish();
}

void Stage::finish()
{
    m_ahead.reset();
    if (m_layout) {
        m_problems = m_layout->Problems();
        m_lacks = m_layout->Lacks();
        m_end = m_layout->End();
        // If the user has turned the camera during loading, it keeps its distance from the train.
        if (!m_again)
            OrbitCamera(*m_view).MoveAlong(TrainMiddle());
    }
    if (m_view->Models.Count() > 0)
        m_view->Models.Item(1).SetSelected(true);
    m_view->ResetCamera();
    m_scrollMaximum = Rounded16(-m_end, "the length of the train in metres");
    m_scrollMiddle = Rounded16(-TrainMiddle(), "the middle of the train");
    m_again = false;
    reportEnd();
}

void Stage::reportEnd()
{
    if (m_stopped) {
        m_setStatus("Stopped after " + std::to_string(Done()) + " of " + std::to_string(Total()) +
                    " vehicles");
        return;
    }
    AddMissing(m_lacks, m_problems);
    if (m_options.lights)
        AddMissing(LightProblemsOf(m_view->Models), m_problems);
    if (m_problems.empty()) {
        m_setStatus("Done");
    } else {
        const std::size_t more = m_problems.size() - 1;
        m_setStatus("Done. " + m_problems.front() +
                    (more ? " (and " + std::to_string(more) + " more)" : ""));
    }
}

std::string Stage::NameOf(int place) const
{
    return m_layout ? m_layout->NameOf(place) : std::string(host::path::FileName(m_shownShape));
}

std::string Stage::Report() const
{
    if (!m_view)
        return {};
    std::vector<std::string> missing = m_layout ? m_messages.Texts() : std::vector<std::string>();
    AddMissing(m_lacks, missing);
    if (m_options.lights)
        AddMissing(LightProblemsOf(m_view->Models), missing);
    return (m_layout ? ConsistTextures(m_view->Models) : ShapeTextures(m_view->Models)) +
           AddedTextures(m_view->Models) + NotLoaded(missing) +
           Incomplete(FaultsOf(m_view->Models));
}

std::vector<MissingTexture> Stage::MissingTextures() const
{
    return m_view ? MissingTexturesOf(m_view->Models) : std::vector<MissingTexture>();
}

void Stage::Close()
{
    if (m_view)
        m_view->DestroyModels();
    m_ahead.reset();
    m_layout.reset();
    m_view.reset();
    m_vehicles.reset();
    m_shapeFile.clear();
    m_vehicleFile.clear();
    m_lacks.clear();
    m_shownShape.clear();
    m_problems.clear();
    m_stock.clear();
    m_models.Clear();
    m_messages.Clear();
    m_again = false;
    m_loading = false;
    m_end = 0;
    m_scrollMaximum = m_scrollMiddle = 0;
}

} // namespace viewer
