// SPDX-License-Identifier: MIT
#include "gl/GlDevice.h"

#include "gl/GlShaders.h"

#include <QOpenGLContext>
#include <QVector3D>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#ifndef GL_TEXTURE_MAX_ANISOTROPY_EXT
#define GL_TEXTURE_MAX_ANISOTROPY_EXT 0x84FE
#define GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT 0x84FF
#endif

namespace korvat {
namespace {

constexpr float kAnisotropy = 8;
constexpr float kGroundSlope = 1, kGroundUnits = 16;   ///< depth behind surfaces at the same height
constexpr std::array<float, 4> kBorder = {0, 0, 0, 1}; ///< the border colour of all real shapes

// The numbers of the compressed formats in EXT_texture_compression_s3tc.
constexpr GLenum kDxt1Rgb = 0x83F0, kDxt1Rgba = 0x83F1, kDxt3 = 0x83F2, kDxt5 = 0x83F3;

GLenum compressedFormat(const Texture &texture)
{
    switch (texture.levels.front().format) {
    case PixelFormat::Dxt3:
        return kDxt3;
    case PixelFormat::Dxt5:
        return kDxt5;
    default:
        return texture.alphaBits ? kDxt1Rgba : kDxt1Rgb;
    }
}

bool isSoftware(const char *renderer)
{
    const std::string_view name = renderer ? renderer : "";
    for (const char *known :
         {"llvmpipe", "softpipe", "swrast", "Software Rasterizer", "SwiftShader", "GDI Generic"})
        if (name.find(known) != name.npos)
            return true;
    return false;
}

GLint wrapOf(AddressMode addressing)
{
    switch (addressing) {
    case AddressMode::Mirror:
        return GL_MIRRORED_REPEAT;
    case AddressMode::Clamp:
        return GL_CLAMP_TO_EDGE;
    case AddressMode::Border:
        return GL_CLAMP_TO_BORDER;
    case AddressMode::Wrap:
        break;
    }
    return GL_REPEAT;
}

std::size_t samplerOf(AddressMode addressing, bool mipmaps)
{
    return (static_cast<std::size_t>(addressing) - 1) * 2 + (mipmaps ? 1 : 0);
}

void set(QOpenGLShaderProgram &program, const char *name, const Tint &colour)
{
    program.setUniformValue(name, colour.r, colour.g, colour.b);
}

void set(QOpenGLShaderProgram &program, const char *name, Vec3 v)
{
    program.setUniformValue(name, v.x, v.y, v.z);
}

/// Converts an offset in a buffer to the pointer that OpenGL expects.
const void *offset(std::size_t bytes)
{
    return reinterpret_cast<const void *>(bytes); // NOLINT(performance-no-int-to-ptr)
}

} // namespace

GlDevice::GlDevice() = default;

std::unique_ptr<GlDevice> GlDevice::Create(std::string &reason)
{
    std::unique_ptr<GlDevice> device(new GlDevice);
    return device->start(reason) ? std::move(device) : nullptr;
}

bool GlDevice::start(std::string &reason)
{
    QOpenGLContext *context = QOpenGLContext::currentContext();
    const bool recent = context && context->format().version() >= qMakePair(3, 3);
    if (!recent || !initializeOpenGLFunctions()) {
        reason = "this system offers no OpenGL 3.3";
        return false;
    }
    if (!compile(m_surface, shaders::kSurfaceVertex, shaders::kSurfaceFragment, reason) ||
        !compile(m_sky, shaders::kSkyVertex, shaders::kSkyFragment, reason) ||
        !m_shadows.Start(reason))
        return false;
    m_isSoftware = isSoftware(reinterpret_cast<const char *>(glGetString(GL_RENDERER)));
    m_place = {m_surface.uniformLocation("world"),     m_surface.uniformLocation("colour"),
               m_surface.uniformLocation("textured"),  m_surface.uniformLocation("opaque"),
               m_surface.uniformLocation("finish"),    m_surface.uniformLocation("alphaLimit"),
               m_surface.uniformLocation("fades"),     m_surface.uniformLocation("softEdge"),
               m_surface.uniformLocation("sharpness"), m_surface.uniformLocation("isGround")};
    glGenVertexArrays(1, &m_skyArray);
    makeSamplers();
    m_compressedTextures = context->hasExtension("GL_EXT_texture_compression_s3tc");
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &m_largestTexture);
    return true;
}

bool GlDevice::compile(QOpenGLShaderProgram &program, const char *vertex, const char *fragment,
                       std::string &reason)
{
    if (program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertex) &&
        program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragment) && program.link())
        return true;
    reason = "the graphics driver refuses the shaders: " + program.log().toStdString();
    return false;
}

void GlDevice::makeSamplers()
{
    float anisotropy = 0;
    if (!m_isSoftware &&
        QOpenGLContext::currentContext()->hasExtension("GL_EXT_texture_filter_anisotropic"))
        glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &anisotropy);
    glGenSamplers(static_cast<GLsizei>(m_samplers.size()), m_samplers.data());
    for (std::size_t i = 0; i < m_samplers.size(); ++i) {
        const GLuint sampler = m_samplers[i];
        const bool mipmaps = i % 2 == 1;
        const GLint wrap = wrapOf(static_cast<AddressMode>(i / 2 + 1));
        glSamplerParameteri(sampler, GL_TEXTURE_WRAP_S, wrap);
        glSamplerParameteri(sampler, GL_TEXTURE_WRAP_T, wrap);
        glSamplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, mipmaps ? GL_LINEAR : GL_NEAREST);
        glSamplerParameteri(sampler, GL_TEXTURE_MIN_FILTER,
                            mipmaps ? GL_LINEAR_MIPMAP_LINEAR : GL_NEAREST);
        glSamplerParameterfv(sampler, GL_TEXTURE_BORDER_COLOR, kBorder.data());
        if (mipmaps && anisotropy > 1)
            glSamplerParameterf(sampler, GL_TEXTURE_MAX_ANISOTROPY_EXT,
                                std::min(anisotropy, kAnisotropy));
    }
}

GlDevice::~GlDevice()
{
    if (!isInitialized())
        return;
    for (const auto &[number, buffers] : m_meshes) {
        glDeleteVertexArrays(1, &buffers.vertexArray);
        glDeleteBuffers(1, &buffers.vertices);
        glDeleteBuffers(1, &buffers.indices);
    }
    glDeleteSamplers(static_cast<GLsizei>(m_samplers.size()), m_samplers.data());
    glDeleteVertexArrays(1, &m_skyArray);
}

unsigned GlDevice::UploadMesh(std::span<const DrawVertex> vertices,
                              std::span<const std::uint32_t> indices)
{
    Buffers buffers;
    glGenVertexArrays(1, &buffers.vertexArray);
    glBindVertexArray(buffers.vertexArray);
    glGenBuffers(1, &buffers.vertices);
    glBindBuffer(GL_ARRAY_BUFFER, buffers.vertices);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size_bytes()), vertices.data(),
                 GL_STATIC_DRAW);
    glGenBuffers(1, &buffers.indices);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffers.indices);
    glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indices.size_bytes()),
                 indices.data(), GL_STATIC_DRAW);
    const struct
    {
        int size;
        std::size_t at;
    } fields[] = {{3, offsetof(DrawVertex, position)},
                  {3, offsetof(DrawVertex, normal)},
                  {2, offsetof(DrawVertex, uv)}};
    for (GLuint i = 0; i < 3; ++i) {
        glEnableVertexAttribArray(i);
        glVertexAttribPointer(i, fields[i].size, GL_FLOAT, GL_FALSE, sizeof(DrawVertex),
                              offset(fields[i].at));
    }
    glBindVertexArray(0);
    m_meshes[buffers.vertexArray] = buffers;
    return buffers.vertexArray;
}

void GlDevice::ReleaseMesh(unsigned mesh)
{
    const auto found = m_meshes.find(mesh);
    if (found == m_meshes.end())
        return;
    glDeleteVertexArrays(1, &found->second.vertexArray);
    glDeleteBuffers(1, &found->second.vertices);
    glDeleteBuffers(1, &found->second.indices);
    m_meshes.erase(found);
}

unsigned GlDevice::UploadTexture(const Texture &picture)
{
    GLuint texture = 0;
    glGenTextures(1, &texture);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    const GLsizei count = uploadLevels(picture);
    if (count == 1 && !isCompressed(picture))
        glGenerateMipmap(GL_TEXTURE_2D);
    else
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, std::max(0, count - 1));
    return texture;
}

bool GlDevice::isCompressed(const Texture &picture) const
{
    return m_compressedTextures && picture.levels.front().format != PixelFormat::Rgba8;
}

/// Uploads the levels that the card can hold; returns their number.
GLsizei GlDevice::uploadLevels(const Texture &picture)
{
    const bool compressed = isCompressed(picture);
    const std::size_t usable = compressed ? picture.UniformLevels() : picture.levels.size();
    GLsizei count = 0;
    for (std::size_t i = 0; i < usable; ++i) {
        const auto width = static_cast<GLsizei>(picture.levels[i].width);
        const auto height = static_cast<GLsizei>(picture.levels[i].height);
        if (std::max(width, height) > m_largestTexture)
            continue;
        if (compressed) {
            const Bytes bytes = picture.LevelBytes(i);
            glCompressedTexImage2D(GL_TEXTURE_2D, count, compressedFormat(picture), width, height,
                                   0, static_cast<GLsizei>(bytes.size()), bytes.data());
        } else {
            glTexImage2D(GL_TEXTURE_2D, count, GL_RGBA8, width, height, 0, GL_RGBA,
                         GL_UNSIGNED_BYTE, picture.Decoded(i).data());
        }
        ++count;
    }
    return count;
}

void GlDevice::ReleaseTexture(unsigned texture)
{
    glDeleteTextures(1, &texture);
}

void GlDevice::BeginShadow(const ShadowMap &map, std::size_t number)
{
    m_shadows.Begin(map, number);
    m_lastMesh = 0;
}

void GlDevice::DrawShadow(const ShadowCall &call, std::span<const Transform> places)
{
    if (!m_shadows.Use(call))
        return;
    if (call.texture) {
        glBindTexture(GL_TEXTURE_2D, call.texture);
        glBindSampler(0, m_samplers[samplerOf(call.addressing, true)]);
    }
    drawElements(call, GL_TRIANGLES, m_shadows.World(), places);
}

void GlDevice::BeginFrame(const FrameSetup &setup)
{
    m_shadows.End();
    glViewport(0, 0, setup.width, setup.height);
    glDisable(GL_SCISSOR_TEST);
    glDisable(GL_BLEND);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    const Tint plain = setup.hasSky ? Tint{0, 0, 0, 0} : setup.horizon;
    glClearColor(plain.r, plain.g, plain.b, plain.a);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (setup.hasSky)
        paintSky(setup);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LESS);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glFrontFace(GL_CW);
    glEnable(GL_MULTISAMPLE);
    // The frame's own alpha stays 1; otherwise the windows behind this one would show through.
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
    setFrame(setup);
    m_lastMesh = 0;
}

void GlDevice::paintSky(const FrameSetup &setup)
{
    // The camera's axes, which are the columns of the view matrix, scaled to the image's edges.
    const auto axis = [&setup](int column, float factor) {
        return Vec3{setup.view.At(0, column), setup.view.At(1, column), setup.view.At(2, column)} *
               factor;
    };
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    m_sky.bind();
    set(m_sky, "right", axis(0, 1 / setup.projection.At(0, 0)));
    set(m_sky, "up", axis(1, 1 / setup.projection.At(1, 1)));
    // The middle of a tile is not in the direction of the camera.
    set(m_sky, "forward",
        axis(2, 1) - axis(0, setup.projection.At(2, 0) / setup.projection.At(0, 0)) -
            axis(1, setup.projection.At(2, 1) / setup.projection.At(1, 1)));
    set(m_sky, "zenith", setup.zenith);
    set(m_sky, "horizon", setup.horizon);
    set(m_sky, "nadir", setup.nadir);
    set(m_sky, "toSun", setup.toSun);
    set(m_sky, "sun", setup.sun);
    m_sky.setUniformValue("hasClouds", setup.clouds != 0);
    m_sky.setUniformValue("clouds", 0);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, setup.clouds);
    glBindSampler(0, m_samplers[samplerOf(AddressMode::Wrap, true)]);
    glBindVertexArray(m_skyArray);
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

void GlDevice::setFrame(const FrameSetup &setup)
{
    m_surface.bind();
    const Transform viewProjection = setup.view * setup.projection;
    glUniformMatrix4fv(m_surface.uniformLocation("viewProjection"), 1, GL_FALSE,
                       viewProjection.m.data());
    set(m_surface, "eye", setup.eye);
    set(m_surface, "toSun", setup.toSun);
    set(m_surface, "sun", setup.sun);
    set(m_surface, "above", setup.ambient);
    set(m_surface, "below", setup.ambientBelow);
    set(m_surface, "haze", setup.horizon);
    set(m_surface, "zenith", setup.zenith);
    m_surface.setUniformValue("hazeRange", setup.hazeNear, setup.hazeFar);
    m_surface.setUniformValue("picture", 0);
    m_shadows.PassTo(m_surface, setup);
    passCones(setup);
    glPolygonOffset(kGroundSlope, kGroundUnits);
    glActiveTexture(GL_TEXTURE0);
}

void GlDevice::passCones(const FrameSetup &setup)
{
    m_surface.setUniformValue("coneCount", static_cast<GLint>(setup.coneCount));
    for (std::size_t i = 0; i < setup.coneCount; ++i) {
        const LightCone &cone = setup.cones[i];
        const std::string place = '[' + std::to_string(i) + ']';
        set(m_surface, ("coneAt" + place).c_str(), cone.at);
        set(m_surface, ("coneAlong" + place).c_str(), cone.along);
        set(m_surface, ("coneColour" + place).c_str(), cone.colour);
        m_surface.setUniformValue(("coneShape" + place).c_str(), cone.reach, cone.cosine);
    }
}

void GlDevice::setEnabled(GLenum option, bool enabled)
{
    enabled ? glEnable(option) : glDisable(option);
}

void GlDevice::useState(const DrawCall &call)
{
    glUniform4f(m_place.colour, call.colour.r, call.colour.g, call.colour.b, call.colour.a);
    glUniform1i(m_place.textured, call.texture != 0);
    glUniform1i(m_place.opaque, call.opaque);
    glUniform1i(m_place.fades, call.mixing == Mixing::Add);
    glUniform1i(m_place.finish, static_cast<GLint>(call.finish));
    glUniform1f(m_place.alphaLimit, call.alphaLimit);
    glUniform1i(m_place.softEdge, call.softEdge);
    glUniform1f(m_place.sharpness, call.sharpness);
    glUniform1i(m_place.isGround, call.isGround);
    setEnabled(GL_POLYGON_OFFSET_FILL, call.isGround);
    setEnabled(GL_SAMPLE_ALPHA_TO_COVERAGE, call.softEdge);
    setEnabled(GL_BLEND, call.mixing != Mixing::Replace);
    glBindTexture(GL_TEXTURE_2D, call.texture);
    glBindSampler(0, m_samplers[samplerOf(call.addressing, call.mipmaps)]);
    glDepthMask(call.writesDepth ? GL_TRUE : GL_FALSE);
    glBlendFunc(GL_SRC_ALPHA, call.mixing == Mixing::Add ? GL_ONE : GL_ONE_MINUS_SRC_ALPHA);
}

/// Draws at as many places at once as the shader's list `world` has room for.
template <typename Call>
void GlDevice::drawElements(const Call &call, GLenum kind, int world,
                            std::span<const Transform> places)
{
    if (call.mesh != m_lastMesh)
        glBindVertexArray(call.mesh);
    m_lastMesh = call.mesh;
    while (!places.empty()) {
        const auto some = places.first(std::min(places.size(), shaders::kPlaces));
        const auto count = static_cast<GLsizei>(some.size());
        glUniformMatrix4fv(world, count, GL_FALSE, some.front().m.data());
        glDrawElementsInstanced(kind, static_cast<GLsizei>(call.indexCount), GL_UNSIGNED_INT,
                                offset(call.firstIndex * sizeof(std::uint32_t)), count);
        places = places.subspan(some.size());
    }
}

void GlDevice::Draw(const DrawCall &call, std::span<const Transform> places)
{
    useState(call);
    drawElements(call, call.isLines ? GL_LINES : GL_TRIANGLES, m_place.world, places);
}

void GlDevice::EndFrame()
{
    glBindVertexArray(0);
    glBindSampler(0, 0);
    glBindTexture(GL_TEXTURE_2D, 0);
    for (const GLenum option : {GL_BLEND, GL_CULL_FACE, GL_DEPTH_TEST, GL_SAMPLE_ALPHA_TO_COVERAGE,
                                GL_POLYGON_OFFSET_FILL})
        glDisable(option);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    m_surface.release();
}

} // namespace korvat
