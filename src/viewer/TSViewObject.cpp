// SPDX-License-Identifier: MIT
#include "viewer/TSViewObject.h"

#include "host/Dialogs.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "viewer/Numbers.h"

#include <limits>

using host::ErrorNumber;
using host::RuntimeError;

namespace {

std::string identity(const TSViewObject *object)
{
    return std::to_string(reinterpret_cast<std::uintptr_t>(object));
}

} // namespace

TSViewObject::TSViewObject(const install::Environment &environment)
    : m_environment(environment)
    , m_model(environment.shapes)
{
    host::AppendTraceLine("> tsviewobject " + identity(this));
}

TSViewObject::~TSViewObject()
{
    SetRenderer(nullptr);
    host::AppendTraceLine("< tsviewobject " + identity(this));
}

std::int16_t TSViewObject::NumTextures() const
{
    if (m_textures.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
        throw RuntimeError(ErrorNumber::Overflow,
                           "the shape has " + std::to_string(m_textures.size()) + " textures");
    return static_cast<std::int16_t>(m_textures.size());
}

std::string TSViewObject::Texture(int index) const
{
    if (index < 1 || index > NumTextures())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange, "texture " + std::to_string(index) +
                                                                 " of " +
                                                                 std::to_string(m_textures.size()));
    return m_textures[static_cast<std::size_t>(index - 1)];
}

bool TSViewObject::LoadShape(const std::string &shapeFile)
{
    if (!m_environment.files.FileExists(shapeFile)) {
        m_environment.dialogs.Message(shapeFile + " does not exist!", "LoadShape",
                                      host::DialogIcon::Critical);
        return false;
    }
    m_model.LoadShapeFile(shapeFile);
    m_lastError = host::TrimBlanks(m_model.ErrorText());
    if (!m_lastError.empty())
        return false;
    m_shapeFile = shapeFile;
    m_textures.clear();
    for (int slot = 0; slot < m_model.TextureCount(); ++slot)
        m_textures.push_back(m_model.TextureInfo(slot));
    m_texturesShown = true;
    return true;
}

void TSViewObject::SetRenderer(korvat::Renderer *renderer)
{
    m_renderer = renderer;
    m_model.SetRenderer(renderer);
    for (Added &added : m_added)
        added.model.SetRenderer(renderer);
}

std::string TSViewObject::AddShape(const std::string &shapeFile, const korvat::Transform &place,
                                   bool isLoad)
{
    Added added{ShapeModel(m_environment.shapes), shapeFile, place, isLoad};
    added.model.SetRenderer(m_renderer);
    added.model.SetTexturePath(kTexturePath);
    added.model.SetChoice(m_choice);
    added.model.LoadShapeFile(shapeFile);
    std::string fault(host::TrimBlanks(added.model.ErrorText()));
    if (fault.empty())
        m_added.push_back(std::move(added));
    return fault;
}

void TSViewObject::SetChoice(const std::shared_ptr<korvat::TextureChoice> &choice)
{
    m_choice = choice;
    m_model.SetChoice(choice);
    for (Added &added : m_added)
        added.model.SetChoice(choice);
}

void TSViewObject::SetPoses(int level, const PoseOf &poseOf)
{
    m_model.SetPose(poseOf ? poseOf(m_model.AtLevel(level), m_shapeFile) : nullptr);
    for (Added &added : m_added)
        added.model.SetPose(poseOf ? poseOf(added.model.AtLevel(level), added.file) : nullptr);
}

void TSViewObject::RenderAdded(bool withLoads, int level)
{
    for (Added &added : m_added) {
        if (added.isLoad && !withLoads)
            continue;
        added.model.SetWorldMatrix(added.place * m_model.WorldMatrix());
        added.model.Render(level, -1.0F);
    }
}

void TSViewObject::MoveBy(float x, float y, float z)
{
    if (x != 0 || y != 0 || z != 0)
        MoveTo(m_x + x, m_y + y, m_z + z);
}

void TSViewObject::MoveTo(float x, float y, float z)
{
    MoveAndRotateTo(x, y, z, m_r);
}

void TSViewObject::MoveAndRotateTo(float x, float y, float z, float r)
{
    place(x, y, z, r);
    applyMoveThenRotate();
}

void TSViewObject::RotateAndMoveTo(float x, float y, float z, float r)
{
    place(x, y, z, r);
    applyRotateThenMove();
}

void TSViewObject::RotateBy(float r)
{
    if (r != 0)
        RotateTo(m_r + r);
}

void TSViewObject::RotateTo(float r)
{
    MoveAndRotateTo(m_x, m_y, m_z, r);
}

void TSViewObject::place(float x, float y, float z, float r)
{
    for (const float value : {x, y, z, r})
        viewer::Finite(value);
    m_x = x;
    m_y = y;
    m_z = z;
    m_r = r;
}

void TSViewObject::applyMoveThenRotate()
{
    m_model.SetWorldMatrix(korvat::Translation({m_x, m_y, m_z}) * korvat::RotationY(m_r));
}

void TSViewObject::applyRotateThenMove()
{
    m_model.SetWorldMatrix(korvat::RotationY(m_r) * korvat::Translation({m_x, m_y, m_z}));
}

void TSViewObject::Flash()
{
    m_texturesShown = !m_texturesShown;
    for (int slot = 0; slot < m_model.TextureCount(); ++slot)
        m_model.SetTexture(
            slot, m_texturesShown ? m_model.LoadTexture(m_textures[static_cast<std::size_t>(slot)])
                                  : nullptr);
}

void TSViewObject::UnFlash()
{
    m_texturesShown = false;
    Flash();
}

void TSViewObject::SetFlashOn(bool on)
{
    m_flashOn = on;
    if (!on)
        UnFlash();
}

void TSViewObject::Destroy()
{
    for (int slot = 0; slot < m_model.TextureCount(); ++slot)
        m_model.SetTexture(slot, nullptr);
    m_added.clear();
    m_fittings = {};
    SetRenderer(nullptr);
}
