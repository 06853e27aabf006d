// SPDX-License-Identifier: MIT
#include "korvat/model/Pose.h"

#include "host/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <string_view>

namespace korvat {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr float kUsualRadius = 0.46F, kLeastRadius = 0.1F, kLargestRadius = 2;

bool beginsWith(const std::string &name, std::string_view start)
{
    return name.size() >= start.size() &&
           host::EqualsNoCase(std::string_view(name).substr(0, start.size()), start);
}

bool isWheel(const Joint &joint)
{
    return beginsWith(joint.name, "WHEELS");
}

bool isPantograph(const Joint &joint)
{
    return beginsWith(joint.name, "PANTOGRAPH");
}

bool isAnimated(const Joint &joint)
{
    return joint.rotations.size() > 1 || joint.positions.size() > 1;
}

/// True for a part that runs with the driven wheels.
bool isGear(const Joint &joint)
{
    static constexpr std::string_view kOthers[] = {"PANTOGRAPH", "DOOR",       "LEFTDOOR",
                                                   "RIGHTDOOR",  "WIPER",      "MIRROR",
                                                   "UNLOADING",  "FREIGHTANIM"};
    return isAnimated(joint) &&
           std::none_of(std::begin(kOthers), std::end(kOthers),
                        [&](std::string_view start) { return beginsWith(joint.name, start); });
}

/// Returns the key at or before a frame and how far the frame is on the way to the next one.
template <typename Key>
std::pair<std::size_t, float> placeAt(const std::vector<Key> &keys, double frame)
{
    const auto after = std::upper_bound(keys.begin(), keys.end(), frame,
                                        [](double at, const Key &key) { return at < key.frame; });
    if (after == keys.begin())
        return {0, 0.0F};
    const auto place = static_cast<std::size_t>(after - keys.begin()) - 1;
    if (after == keys.end())
        return {place, 0.0F};
    const double from = keys[place].frame, to = after->frame;
    return {place, static_cast<float>((frame - from) / (to - from))};
}

using Quaternion = std::array<float, 4>; ///< x, y, z, w

Quaternion unit(Quaternion q)
{
    const float length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    for (float &part : q)
        part /= length;
    return q;
}

Quaternion between(const RotationKey &first, const RotationKey &second, float part)
{
    const Quaternion a = unit({first.x, first.y, first.z, first.w});
    Quaternion b = unit({second.x, second.y, second.z, second.w});
    float cosine = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
    const float side = cosine < 0 ? -1.0F : 1.0F; // the shortest way
    cosine = std::min(cosine * side, 1.0F);
    const float angle = std::acos(cosine), sine = std::sin(angle);
    const bool isNear = sine < 1e-4F;
    const float ofA = isNear ? 1 - part : std::sin((1 - part) * angle) / sine;
    const float ofB = (isNear ? part : std::sin(part * angle) / sine) * side;
    for (std::size_t i = 0; i < 4; ++i)
        b[i] = a[i] * ofA + b[i] * ofB;
    return unit(b);
}

/// Sets the rotation of a matrix. Keys are stored conjugated.
void setRotation(const Quaternion &key, Matrix &matrix)
{
    const float x = key[0], y = key[1], z = key[2], w = -key[3];
    const std::array<float, 9> rows = {
        1 - 2 * (y * y + z * z), 2 * (x * y + z * w),     2 * (x * z - y * w),
        2 * (x * y - z * w),     1 - 2 * (x * x + z * z), 2 * (y * z + x * w),
        2 * (x * z + y * w),     2 * (y * z - x * w),     1 - 2 * (x * x + y * y)};
    std::copy(rows.begin(), rows.end(), matrix.rows.begin());
}

/// Returns the inverse of a matrix; nothing if it has none.
std::optional<Matrix> inverseOf(const Matrix &matrix)
{
    const auto &m = matrix.rows;
    const Vec3 a{m[0], m[1], m[2]}, b{m[3], m[4], m[5]}, c{m[6], m[7], m[8]};
    const Vec3 columns[] = {Cross(b, c), Cross(c, a), Cross(a, b)};
    const float determinant = Dot(a, columns[0]);
    if (!std::isfinite(determinant) || std::abs(determinant) < 1e-12F)
        return std::nullopt;
    Matrix inverse;
    for (std::size_t i = 0; i < 3; ++i) {
        const Vec3 column = columns[i] * (1 / determinant);
        inverse.rows[i] = column.x;
        inverse.rows[3 + i] = column.y;
        inverse.rows[6 + i] = column.z;
    }
    const Vec3 back = Turned({m[9], m[10], m[11]}, inverse) * -1;
    inverse.rows[9] = back.x;
    inverse.rows[10] = back.y;
    inverse.rows[11] = back.z;
    return inverse;
}

Transform asTransform(const Matrix &matrix)
{
    Transform result = Identity();
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 3; ++column)
            result.At(row, column) = matrix.rows[static_cast<std::size_t>(3 * row + column)];
    return result;
}

class PoseMaker
{
public:
    PoseMaker(const Model &model, const Movement &movement)
        : m_model(model)
        , m_movement(movement)
    {
        for (const Joint &joint : model.joints)
            m_locals.push_back(joint.rest);
        m_moves.resize(model.joints.size());
        if (movement.distance != 0)
            roll();
        for (std::size_t i = 0; i < model.joints.size() && movement.pantographs; ++i)
            if (isPantograph(model.joints[i]) && isAnimated(model.joints[i]))
                set(i, LocalAt(model.joints[i], std::numeric_limits<double>::max()));
    }

    bool MovesAnything() const
    {
        return std::find(m_moves.begin(), m_moves.end(), true) != m_moves.end();
    }

    /// Returns what moves the vertices of a joint from their rest; nothing if it stays there.
    std::optional<Transform> MovedAt(std::size_t joint) const
    {
        bool moves = false;
        for (int at = static_cast<int>(joint); at >= 0; at = parentOf(at))
            moves = moves || m_moves[static_cast<std::size_t>(at)];
        const auto back = moves ? inverseOf(restOf(joint)) : std::nullopt;
        if (!back)
            return std::nullopt;
        const Matrix moved =
            Product(*back, along(joint, [this](std::size_t at) { return m_locals[at]; }));
        if (!std::all_of(moved.rows.begin(), moved.rows.end(),
                         [](float number) { return std::isfinite(number); }))
            return std::nullopt;
        return asTransform(moved);
    }

private:
    int parentOf(int joint) const { return m_model.joints[static_cast<std::size_t>(joint)].parent; }

    template <typename Local> Matrix along(std::size_t joint, Local local) const
    {
        Matrix world = local(joint);
        for (int at = m_model.joints[joint].parent; at >= 0; at = parentOf(at))
            world = Product(world, local(static_cast<std::size_t>(at)));
        return world;
    }
    Matrix restOf(std::size_t joint) const
    {
        return along(joint, [this](std::size_t at) { return m_model.joints[at].rest; });
    }

    void set(std::size_t joint, const Matrix &local)
    {
        m_locals[joint] = local;
        m_moves[joint] = true;
    }

    void roll()
    {
        for (std::size_t i = 0; i < m_model.joints.size(); ++i) {
            const Joint &joint = m_model.joints[i];
            const float known = knownRadius(joint);
            if (isWheel(joint) && (known > 0 || !isAnimated(joint)))
                turn(i, known > 0 ? known : axleHeight(i));
            else if (i > 0 && isGear(joint))
                run(i, known > 0 ? known : gearRadius());
        }
    }

    float knownRadius(const Joint &joint) const
    {
        const float wheel = m_movement.wheelRadius, driver = m_movement.driverRadius;
        return driver > 0 && (isAnimated(joint) || wheel <= 0) ? driver : wheel;
    }

    /// Returns the height of a wheel's axle above the rails, which is its radius.
    float axleHeight(std::size_t joint) const
    {
        const float height = restOf(joint).rows[10];
        return height >= kLeastRadius && height <= kLargestRadius ? height : kUsualRadius;
    }

    float gearRadius()
    {
        for (std::size_t i = 0; m_gearRadius == 0 && i < m_model.joints.size(); ++i)
            if (isWheel(m_model.joints[i]) && isAnimated(m_model.joints[i]))
                m_gearRadius = axleHeight(i);
        m_gearRadius = m_gearRadius == 0 ? kUsualRadius : m_gearRadius;
        return m_gearRadius;
    }

    /// Returns the part of a turn, from 0 to 1, of a wheel that has rolled the distance.
    double phaseOf(float radius) const
    {
        const double turns = m_movement.distance / (kTurn * double{radius});
        return turns - std::floor(turns);
    }

    /// Turns a wheel about its own X axis, which may point to either side.
    void turn(std::size_t joint, float radius)
    {
        const double side = restOf(joint).rows[0] < 0 ? -1 : 1;
        const double angle = phaseOf(radius) * kTurn * side;
        const auto cosine = static_cast<float>(std::cos(angle));
        const auto sine = static_cast<float>(std::sin(angle));
        const Matrix about{{1, 0, 0, 0, cosine, sine, 0, -sine, cosine, 0, 0, 0}};
        set(joint, Product(about, m_model.joints[joint].rest));
    }

    void run(std::size_t place, float radius)
    {
        const Joint &joint = m_model.joints[place];
        std::uint32_t frames = joint.frames;
        if (frames == 0 && !joint.rotations.empty())
            frames = joint.rotations.back().frame;
        if (frames == 0 && !joint.positions.empty())
            frames = joint.positions.back().frame;
        set(place, LocalAt(joint, phaseOf(radius) * frames));
    }

    const Model &m_model;
    const Movement &m_movement;
    std::vector<Matrix> m_locals;
    std::vector<bool> m_moves;
    float m_gearRadius = 0; ///< 0 before it is known
};

/// Extends the bounds of a pose by a moved part.
void include(const Sphere &part, const Transform &moved, Pose &pose)
{
    const Vec3 at = TransformPoint(part.centre, moved);
    const float r = part.radius;
    Vec3 &least = pose.box.least, &most = pose.box.most;
    least = {std::min(least.x, at.x - r), std::min(least.y, at.y - r), std::min(least.z, at.z - r)};
    most = {std::max(most.x, at.x + r), std::max(most.y, at.y + r), std::max(most.z, at.z + r)};
}

} // namespace

Matrix LocalAt(const Joint &joint, double frame)
{
    Matrix local = joint.rest;
    if (!joint.rotations.empty()) {
        const auto [place, part] = placeAt(joint.rotations, frame);
        const std::size_t next = std::min(place + 1, joint.rotations.size() - 1);
        setRotation(between(joint.rotations[place], joint.rotations[next], part), local);
    }
    if (!joint.positions.empty()) {
        const auto [place, part] = placeAt(joint.positions, frame);
        const std::size_t next = std::min(place + 1, joint.positions.size() - 1);
        const Vec3 from = joint.positions[place].position;
        const Vec3 at = from + (joint.positions[next].position - from) * part;
        local.rows[9] = at.x;
        local.rows[10] = at.y;
        local.rows[11] = at.z;
    }
    return local;
}

PosePtr MakePose(const Model &model, const Movement &movement,
                 const std::function<bool(const Joint &)> &hides)
{
    const PoseMaker maker(model, movement);
    auto pose = std::make_shared<Pose>();
    pose->box = model.box;
    pose->bounds = model.bounds;
    bool differs = false;
    pose->hidden.resize(model.joints.size());
    for (std::size_t i = 0; hides && i < model.joints.size(); ++i) {
        pose->hidden[i] = hides(model.joints[i]);
        differs = differs || (pose->hidden[i] && model.joints[i].drawn);
    }
    if (maker.MovesAnything()) {
        pose->moved.assign(model.joints.size(), Identity());
        for (std::size_t i = 0; i < model.joints.size(); ++i)
            if (const auto moved = maker.MovedAt(i)) {
                pose->moved[i] = *moved;
                differs = true;
            }
        for (const Part &part : model.parts)
            if (part.joint < pose->moved.size())
                include(part.bounds, pose->moved[part.joint], *pose);
        pose->bounds.centre = (pose->box.least + pose->box.most) * 0.5F;
        pose->bounds.radius = Length(pose->box.most - pose->bounds.centre);
    }
    return differs ? pose : nullptr;
}

} // namespace korvat
