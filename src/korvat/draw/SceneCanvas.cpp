// SPDX-License-Identifier: MIT
#include "korvat/draw/SceneCanvas.h"

#include "korvat/draw/Scenery.h"

namespace korvat {

void SceneCanvas::SetCamera(float eyeX, float eyeY, float eyeZ, float targetX, float targetY,
                            float targetZ)
{
    m_eye = {eyeX, eyeY, eyeZ};
    m_renderer.SetCamera(m_eye, {targetX, targetY, targetZ});
}

void SceneCanvas::BecomeStudio(const Tint &background, float verticalDegrees)
{
    m_isStudio = true;
    m_renderer.SetBackdrop(background);
    m_renderer.SetLens(verticalDegrees);
}

bool SceneCanvas::BeginFrame()
{
    if (!m_rendering || !m_usable)
        return false;
    m_renderer.Begin();
    if (m_scenery && !m_isStudio)
        Scenery::AddTo(m_renderer, m_eye, m_ground);
    return true;
}

void SceneCanvas::EndFrame()
{
    if (m_scenery && m_ground == Ground::Track)
        Scenery::AddShades(m_renderer);
    m_renderer.End();
    frameReady();
}

void SceneCanvas::SetRangeNear(long metres)
{
    m_hazeNear = static_cast<float>(metres);
    m_renderer.SetHaze(m_hazeNear, m_hazeFar);
}

void SceneCanvas::SetRangeFar(long metres)
{
    m_hazeFar = static_cast<float>(metres);
    m_renderer.SetHaze(m_hazeNear, m_hazeFar);
}

} // namespace korvat
