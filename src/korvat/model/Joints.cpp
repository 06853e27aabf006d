// SPDX-License-Identifier: MIT
#include "korvat/model/Joints.h"

#include "host/Text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>

namespace korvat {
namespace {

/// Names that share a fault, for one sentence about all of them.
class Names
{
public:
    void Add(const std::string &name)
    {
        if (m_count++ == 0)
            m_first = name.empty() ? "a part without a name" : name;
    }
    /// Adds "WHAT NAME and N more" to the list, unless there are no names.
    void Report(const std::string &what, std::vector<std::string> &faults) const
    {
        if (m_count > 0)
            faults.push_back(what + m_first +
                             (m_count > 1 ? " and " + std::to_string(m_count - 1) + " more" : ""));
    }

private:
    std::string m_first;
    std::size_t m_count = 0;
};

bool isUsable(const RotationKey &key)
{
    const float square = key.x * key.x + key.y * key.y + key.z * key.z + key.w * key.w;
    return std::isfinite(square) && square > 1e-12F;
}

bool isUsable(const PositionKey &key)
{
    return std::isfinite(key.position.x) && std::isfinite(key.position.y) &&
           std::isfinite(key.position.z);
}

/// Returns the usable keys in order. Keys of the same frame keep the order of the file.
template <typename Key> std::vector<Key> sorted(std::vector<Key> keys, bool &wasSorted)
{
    const auto earlier = [](const Key &a, const Key &b) { return a.frame < b.frame; };
    std::erase_if(keys, [](const Key &key) { return !isUsable(key); });
    wasSorted = wasSorted && std::is_sorted(keys.begin(), keys.end(), earlier);
    std::stable_sort(keys.begin(), keys.end(), earlier);
    return keys;
}

/// Finds the joint that an animation node moves.
class NodeFinder
{
public:
    explicit NodeFinder(const std::vector<Joint> &joints)
        : m_joints(joints)
    {
        for (std::size_t i = 0; i < joints.size(); ++i)
            m_byName.emplace(host::ToUpper(joints[i].name), i);
    }
    std::optional<std::size_t> JointOf(const AnimNode &node, std::size_t place) const
    {
        if (place < m_joints.size() && host::EqualsNoCase(m_joints[place].name, node.name))
            return place;
        if (const auto named = m_byName.find(host::ToUpper(node.name)); named != m_byName.end())
            return named->second;
        return place < m_joints.size() ? std::optional(place) : std::nullopt;
    }

private:
    const std::vector<Joint> &m_joints;
    std::unordered_map<std::string, std::size_t> m_byName;
};

void animate(const Animation &animation, Model &model)
{
    const NodeFinder finder(model.joints);
    Names unsorted;
    bool hasKeys = false;
    for (std::size_t i = 0; i < animation.nodes.size(); ++i) {
        const AnimNode &node = animation.nodes[i];
        const auto place = finder.JointOf(node, i);
        hasKeys = hasKeys || !node.rotations.empty() || !node.positions.empty();
        if (!place)
            continue;
        Joint &joint = model.joints[*place];
        bool inOrder = true;
        joint.rotations = sorted(node.rotations, inOrder);
        joint.positions = sorted(node.positions, inOrder);
        joint.frames = animation.frames;
        if (!inOrder)
            unsorted.Add(node.name);
    }
    if (!hasKeys)
        model.faults.emplace_back("the animation has no keys");
    unsorted.Report("the times of the animation go backwards for ", model.faults);
}

} // namespace

void AddJoints(const Shape &shape, const Level &level, Model &model)
{
    const std::vector<int> parents = ParentsOf(shape, level);
    Names loops;
    for (std::size_t i = 0; i < shape.matrices.size(); ++i) {
        const NamedMatrix &matrix = shape.matrices[i];
        model.joints.push_back({matrix.name, parents[i], false, matrix.matrix, {}, {}, 0});
        const std::int32_t named = i < level.parents.size() ? level.parents[i] : -1;
        if (parents[i] < 0 && named >= 0 && static_cast<std::size_t>(named) != i &&
            static_cast<std::size_t>(named) < shape.matrices.size())
            loops.Add(matrix.name);
    }
    loops.Report("the hierarchy of parts is a loop for ", model.faults);
    for (const Part &part : model.parts)
        if (part.joint < model.joints.size())
            model.joints[part.joint].drawn = true;
    if (!shape.animations.empty())
        animate(shape.animations.front(), model);
}

void AddLevels(const Shape &shape, Model &model)
{
    bool lacks = shape.lodControls.empty();
    for (const LodControl &control : shape.lodControls) {
        const std::vector<const Level *> levels = SortedLevels(control);
        lacks = lacks || levels.empty();
        if (levels.size() <= model.levels.size())
            continue;
        model.levels.clear();
        for (const Level *level : levels)
            model.levels.push_back(level->distance);
    }
    if (lacks)
        model.faults.emplace_back(model.levels.empty() ? "there are no levels of detail"
                                                       : "a part has no levels of detail");
}

} // namespace korvat
