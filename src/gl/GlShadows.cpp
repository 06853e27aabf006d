// SPDX-License-Identifier: MIT
#include "gl/GlShadows.h"

#include "gl/GlShaders.h"

#include <algorithm>
#include <array>

namespace korvat {
namespace {

constexpr int kMapUnit = 1;      ///< texture unit
constexpr float kSlope = 1.5f;   ///< depth offset of inclined surfaces, so that they do not
constexpr float kDepthUnits = 4; ///< shade themselves
constexpr std::array<GLenum, 2> kWraps = {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T};

} // namespace

GlShadows::~GlShadows()
{
    if (isInitialized())
        freeMaps();
}

void GlShadows::freeMaps()
{
    glDeleteFramebuffers(1, &m_framebuffer);
    glDeleteTextures(1, &m_texture);
    m_framebuffer = m_texture = 0;
}

bool GlShadows::Start(std::string &reason)
{
    initializeOpenGLFunctions();
    if (!m_program.addShaderFromSourceCode(QOpenGLShader::Vertex, shaders::kShadowVertex) ||
        !m_program.addShaderFromSourceCode(QOpenGLShader::Fragment, shaders::kShadowFragment) ||
        !m_program.link()) {
        reason = "the graphics driver refuses the shaders: " + m_program.log().toStdString();
        return false;
    }
    m_world = m_program.uniformLocation("world");
    m_alphaLimit = m_program.uniformLocation("alphaLimit");
    return true;
}

/// Makes the maps when they are used for the first time; returns false if there is no room for
/// them.
bool GlShadows::makeMaps()
{
    if (m_texture || !m_usable)
        return m_usable;
    glGenTextures(1, &m_texture);
    glBindTexture(GL_TEXTURE_2D_ARRAY, m_texture);
    glTexImage3D(GL_TEXTURE_2D_ARRAY, 0, GL_DEPTH_COMPONENT16, kShadowSide, kShadowSide,
                 static_cast<GLsizei>(kShadowMaps), 0, GL_DEPTH_COMPONENT, GL_UNSIGNED_SHORT,
                 nullptr);
    for (const GLenum filter : {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
        glTexParameteri(GL_TEXTURE_2D_ARRAY, filter, GL_LINEAR);
    for (const GLenum wrap : kWraps)
        glTexParameteri(GL_TEXTURE_2D_ARRAY, wrap, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D_ARRAY, GL_TEXTURE_COMPARE_MODE, GL_COMPARE_REF_TO_TEXTURE);
    glTexParameteri(GL_TEXTURE_2D_ARRAY, GL_TEXTURE_COMPARE_FUNC, GL_LEQUAL);
    glGenFramebuffers(1, &m_framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    glFramebufferTextureLayer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, m_texture, 0, 0);
    glDrawBuffer(GL_NONE);
    glReadBuffer(GL_NONE);
    m_usable = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    return m_usable;
}

void GlShadows::Begin(const ShadowMap &map, std::size_t number)
{
    if (!m_drawing)
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &m_surface);
    m_drawing = true;
    if (!makeMaps())
        return;
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer);
    glFramebufferTextureLayer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, m_texture, 0,
                              static_cast<GLint>(number));
    glViewport(0, 0, kShadowSide, kShadowSide);
    for (const GLenum option : {GL_SCISSOR_TEST, GL_BLEND, GL_CULL_FACE})
        glDisable(option);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glDepthMask(GL_TRUE);
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(kSlope, kDepthUnits);
    glClear(GL_DEPTH_BUFFER_BIT);
    m_program.bind();
    glUniformMatrix4fv(m_program.uniformLocation("toMap"), 1, GL_FALSE, map.toMap.m.data());
    m_program.setUniformValue("picture", 0);
    glActiveTexture(GL_TEXTURE0);
}

bool GlShadows::Use(const ShadowCall &call)
{
    if (!m_usable)
        return false;
    glUniform1f(m_alphaLimit, call.alphaLimit);
    return true;
}

void GlShadows::End()
{
    if (!m_drawing)
        return;
    m_drawing = false;
    glDisable(GL_POLYGON_OFFSET_FILL);
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(m_surface));
}

void GlShadows::PassTo(QOpenGLShaderProgram &program, const FrameSetup &setup)
{
    const bool shown = setup.hasShadows && m_usable && m_texture;
    program.setUniformValue("hasShadows", shown);
    program.setUniformValue("shadows", kMapUnit);
    if (!shown) {
        if (m_texture)
            freeMaps();
        return;
    }
    std::array<float, 16 * kShadowMaps> matrices{};
    std::array<float, kShadowMaps> ends{}, texels{};
    for (std::size_t i = 0; i < kShadowMaps; ++i) {
        const ShadowMap &map = setup.shadows[i];
        std::copy(map.toMap.m.begin(), map.toMap.m.end(), matrices.begin() + 16 * i);
        ends[i] = map.end;
        texels[i] = map.texel;
    }
    const auto count = static_cast<GLsizei>(kShadowMaps);
    glUniformMatrix4fv(program.uniformLocation("toShadow"), count, GL_FALSE, matrices.data());
    glUniform1fv(program.uniformLocation("shadowEnds"), count, ends.data());
    glUniform1fv(program.uniformLocation("shadowTexels"), count, texels.data());
    const Transform &view = setup.view;
    program.setUniformValue("forward", view.At(0, 2), view.At(1, 2), view.At(2, 2));
    glActiveTexture(GL_TEXTURE0 + kMapUnit);
    glBindTexture(GL_TEXTURE_2D_ARRAY, m_texture);
    glActiveTexture(GL_TEXTURE0);
}

} // namespace korvat
