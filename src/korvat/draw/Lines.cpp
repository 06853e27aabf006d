// SPDX-License-Identifier: MIT
#include "korvat/draw/Lines.h"

#include "korvat/model/Transform.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace korvat {
namespace {

// The length of a normal, as a share of the model's radius and in metres.
constexpr float kNormalShare = 0.012f, kShortest = 0.02f, kLongest = 0.2f;

using Line = std::array<std::uint32_t, 2>;

/// Makes a part of the lines of each joint; `jointOf` returns that of a vertex.
template <typename JointOf>
std::shared_ptr<const Model> finished(Model model, const Tint &colour, const JointOf &jointOf)
{
    model.isLines = true;
    std::vector<Line> lines;
    for (std::size_t i = 0; i + 1 < model.mesh.indices.size(); i += 2)
        lines.push_back({model.mesh.indices[i], model.mesh.indices[i + 1]});
    std::stable_sort(lines.begin(), lines.end(),
                     [&](const Line &a, const Line &b) { return jointOf(a[0]) < jointOf(b[0]); });
    model.mesh.indices.clear();
    for (const Line &line : lines) {
        const std::uint32_t joint = jointOf(line[0]);
        if (model.parts.empty() || model.parts.back().joint != joint) {
            Part part;
            part.firstIndex = static_cast<std::uint32_t>(model.mesh.indices.size());
            part.surface.finish = Finish::FullBright;
            part.surface.colour = colour;
            part.joint = joint;
            model.parts.push_back(part);
        }
        model.mesh.indices.insert(model.mesh.indices.end(), line.begin(), line.end());
        model.parts.back().indexCount += 2;
    }
    MeasureBounds(model);
    return std::make_shared<const Model>(std::move(model));
}

/// Returns the joints of the vertices; each vertex belongs to one part.
std::vector<std::uint32_t> jointsOf(const Model &model)
{
    std::vector<std::uint32_t> joints(model.mesh.vertices.size());
    for (const Part &part : model.parts)
        for (std::uint32_t i = 0; i < part.indexCount; ++i)
            joints[model.mesh.indices[part.firstIndex + i]] = part.joint;
    return joints;
}

Mesh edgesOf(const Mesh &mesh)
{
    std::vector<std::pair<std::uint32_t, std::uint32_t>> edges;
    edges.reserve(mesh.indices.size());
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3)
        for (std::size_t corner = 0; corner < 3; ++corner)
            edges.push_back(
                std::minmax({mesh.indices[i + corner], mesh.indices[i + (corner + 1) % 3]}));
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    Mesh lines;
    lines.vertices = mesh.vertices;
    for (const auto &[from, to] : edges) {
        lines.indices.push_back(from);
        lines.indices.push_back(to);
    }
    return lines;
}

Mesh normalsOf(const Model &model)
{
    const float length = std::clamp(model.bounds.radius * kNormalShare, kShortest, kLongest);
    Mesh lines;
    for (const DrawVertex &vertex : model.mesh.vertices)
        for (const float along : {0.0f, length}) {
            lines.indices.push_back(static_cast<std::uint32_t>(lines.vertices.size()));
            lines.vertices.push_back(
                {vertex.position + vertex.normal * along, vertex.normal, vertex.uv});
        }
    return lines;
}

} // namespace

std::shared_ptr<const Model> MakeLines(const Model &model, LineKind kind, const Tint &colour)
{
    const bool edges = kind == LineKind::Edges;
    Model lines;
    if (!model.isLines)
        lines.mesh = edges ? edgesOf(model.mesh) : normalsOf(model);
    return finished(std::move(lines), colour,
                    [edges, joints = jointsOf(model)](std::uint32_t vertex) {
                        return joints[edges ? vertex : vertex / 2];
                    });
}

std::shared_ptr<const Model> MakeBoxLines(const Tint &colour)
{
    Model lines;
    for (std::uint32_t corner = 0; corner < 8; ++corner) {
        const auto side = [corner](std::uint32_t bit) { return corner & bit ? 0.5f : -0.5f; };
        lines.mesh.vertices.push_back({{side(1), side(2), side(4)}, {0, 1, 0}, {}});
        for (const std::uint32_t bit : {1u, 2u, 4u})
            if (!(corner & bit)) {
                lines.mesh.indices.push_back(corner);
                lines.mesh.indices.push_back(corner | bit);
            }
    }
    return finished(std::move(lines), colour, [](std::uint32_t) { return 0U; });
}

std::shared_ptr<const Model> LineModels::Of(const std::shared_ptr<const Model> &model)
{
    Kept &kept = m_kept[model.get()];
    if (kept.model.lock() != model)
        kept = {model, MakeLines(*model, m_kind, m_colour)};
    return kept.lines;
}

void LineModels::Tidy()
{
    std::erase_if(m_kept, [](const auto &entry) { return entry.second.model.expired(); });
}

} // namespace korvat
