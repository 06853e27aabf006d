// SPDX-License-Identifier: MIT
#include "viewer/ShapesAhead.h"

#include "host/Path.h"
#include "viewer/StockShape.h"
#include "viewer/TSView.h"

#include <exception>

namespace viewer {
namespace {

/// A single thread reads a file that several vehicles share only once, and leaves a core to the
/// window.
constexpr std::size_t kThreads = 1;
constexpr std::size_t kWaiting = 8; ///< vehicles; more would only use memory earlier

std::string shapeOf(host::GameFiles &files, const std::string &file)
{
    const bool shape = host::path::HasExtension(file, "s");
    return shape || file.empty() ? file : ReadStockShape(files, file).shapeFile;
}

} // namespace

ShapesAhead::ShapesAhead(const install::Environment &environment, std::vector<std::string> files)
    : m_ahead(
          files.size(),
          [environment, files](std::size_t place) { return read(environment, files[place]); },
          kThreads, kWaiting)
{
}

ShapesAhead::Held ShapesAhead::read(const install::Environment &environment,
                                    const std::string &file)
{
    Held held;
    try {
        const std::string shape = shapeOf(environment.files, file);
        if (shape.empty())
            return held;
        held.model = environment.shapes.LoadModel(shape).model;
        if (!held.model)
            return held;
        const std::string folder(host::path::FolderWithSeparator(shape));
        for (const std::string &name : held.model->textures)
            held.pictures.push_back(
                environment.shapes.LoadTexture(folder, TSView::kTexturePath, name).texture);
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
