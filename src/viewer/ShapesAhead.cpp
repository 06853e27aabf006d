// SPDX-License-Identifier: MIT
#include "viewer/ShapesAhead.h"

#include "host/Path.h"
#include "viewer/TSViewObject.h"

#include <algorithm>
#include <exception>
#include <set>

namespace viewer {
namespace {

constexpr std::size_t kMostWorkers = 4; ///< more would wait for the disk and for memory
constexpr std::size_t kWaiting = 8;     ///< vehicles; more would only use memory earlier

/// Replaces the names of files that occur before: while the scene holds the first vehicle, nothing
/// of the others is read again.
std::vector<std::string> withoutRepeated(std::vector<std::string> files)
{
    std::set<std::string> known;
    for (std::string &file : files)
        if (!known.insert(file).second)
            file.clear();
    return files;
}

/// Returns the shapes of a file in the order in which loading needs them.
std::vector<std::string> shapesOf(VehicleReader &vehicles, const std::string &file)
{
    if (host::path::HasExtension(file, "s"))
        return {file};
    std::vector<std::string> shapes{vehicles.Shape(file).shapeFile};
    for (const content::AddedShape &added : vehicles.Added(file)->shapes)
        shapes.push_back(added.path);
    return shapes;
}

void hold(korvat::ModelSource &source, const std::string &shape, ShapesAhead::Held &held)
{
    const auto model = shape.empty() ? nullptr : source.LoadModel(shape).model;
    if (!model)
        return;
    held.models.push_back(model);
    const std::string folder(host::path::FolderWithSeparator(shape));
    for (const std::string &name : model->textures)
        held.pictures.push_back(
            source.LoadTexture(folder, TSViewObject::kTexturePath, name).texture);
}

} // namespace

ShapesAhead::ShapesAhead(const install::Environment &environment,
                         std::shared_ptr<VehicleReader> vehicles, std::vector<std::string> files)
    : m_ahead(
          files.size(),
          [environment, vehicles = std::move(vehicles), needed = withoutRepeated(files)](
              std::size_t place) { return read(environment, *vehicles, needed[place]); },
          std::min(host::DefaultWorkers(), kMostWorkers), kWaiting)
{
}

ShapesAhead::Held ShapesAhead::read(const install::Environment &environment,
                                    VehicleReader &vehicles, const std::string &file)
{
    Held held;
    try {
        if (!file.empty())
            for (const std::string &shape : shapesOf(vehicles, file))
                hold(environment.shapes, shape, held);
    } catch (const std::exception &) {
        // Loading the vehicle finds the same fault and reports it.
    }
    return held;
}

bool ShapesAhead::Ready()
{
    if (!m_next)
        m_next = m_ahead.TryTake();
    return m_next || m_ahead.Done();
}

ShapesAhead::Held ShapesAhead::Take()
{
    if (!m_next)
        m_next = m_ahead.Take();
    return std::exchange(m_next, std::nullopt).value_or(Held());
}

} // namespace viewer
