// SPDX-License-Identifier: MIT
#pragma once

#include "gl/GlShadows.h"
#include "korvat/draw/Device.h"

#include <QOpenGLFunctions_3_3_Core>
#include <QOpenGLShaderProgram>

#include <array>
#include <memory>
#include <string>
#include <unordered_map>

namespace korvat {

/// A device that uses OpenGL 3.3. The context that it was created with must be current in every
/// call, including the destructor.
class GlDevice : public Device, private QOpenGLFunctions_3_3_Core
{
public:
    /// Returns null, with the reason in `reason`, if the current context cannot be used.
    static std::unique_ptr<GlDevice> Create(std::string &reason);
    ~GlDevice() override;

    unsigned UploadMesh(std::span<const DrawVertex> vertices,
                        std::span<const std::uint32_t> indices) override;
    unsigned UploadTexture(const Texture &picture) override;
    void ReleaseMesh(unsigned mesh) override;
    void ReleaseTexture(unsigned texture) override;
    void BeginShadow(const ShadowMap &map, std::size_t number) override;
    void DrawShadow(const ShadowCall &call, std::span<const Transform> places) override;
    void BeginFrame(const FrameSetup &setup) override;
    void Draw(const DrawCall &call, std::span<const Transform> places) override;
    void EndFrame() override;

    /// True for an OpenGL that runs on the processor: it needs seconds per frame with anisotropic
    /// filtering, and may be too slow for shadows.
    bool IsSoftware() const { return m_isSoftware; }

private:
    struct Buffers
    {
        GLuint vertexArray = 0, vertices = 0, indices = 0;
    };

    GlDevice();
    bool start(std::string &reason);
    bool compile(QOpenGLShaderProgram &program, const char *vertex, const char *fragment,
                 std::string &reason);
    void makeSamplers();
    bool isCompressed(const Texture &picture) const;
    GLsizei uploadLevels(const Texture &picture);
    void paintSky(const FrameSetup &setup);
    void setFrame(const FrameSetup &setup);
    void passCones(const FrameSetup &setup);
    void setEnabled(GLenum option, bool enabled);
    void useState(const DrawCall &call);
    template <typename Call>
    void drawElements(const Call &call, GLenum kind, int world, std::span<const Transform> places);

    QOpenGLShaderProgram m_surface, m_sky;
    struct
    {
        int world, colour, textured, opaque, finish, alphaLimit, fades, softEdge, sharpness,
            isGround;
    } m_place{};
    GlShadows m_shadows;
    GLuint m_skyArray = 0;
    std::array<GLuint, 8> m_samplers{}; ///< by address mode, without and with mipmaps
    bool m_compressedTextures = false, m_isSoftware = false;
    int m_largestTexture = 0;
    std::unordered_map<unsigned, Buffers> m_meshes;
    unsigned m_lastMesh = 0;
};

} // namespace korvat
