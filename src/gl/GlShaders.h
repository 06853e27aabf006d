// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// The programs for the graphics card. OpenGL reads the rows of a korvat::Transform as columns, so
/// in the shaders a vector is on the right of its matrix.
namespace korvat::shaders {

/// Room in the list of places `world` of the vertex shaders below, which repeat the number. Every
/// OpenGL 3.3 accepts 64 matrices in all.
inline constexpr std::size_t kPlaces = 48;

inline constexpr char kSurfaceVertex[] = R"(#version 330 core
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec2 uv;
uniform mat4 world[48], viewProjection;
out vec3 place, facing;
out vec2 pictureAt;
void main()
{
    vec4 moved = world[gl_InstanceID] * vec4(position, 1.0);
    place = moved.xyz;
    facing = mat3(world[gl_InstanceID]) * normal;
    pictureAt = uv;
    gl_Position = viewProjection * moved;
}
)";

inline constexpr char kSurfaceFragment[] = R"(#version 330 core
in vec3 place, facing;
in vec2 pictureAt;
uniform sampler2D picture;
uniform bool textured, opaque, fades, softEdge, isGround, hasShadows;
uniform vec4 colour;
uniform float alphaLimit, sharpness;
uniform int finish; // 0 normal, 1 shiny, 2 very shiny, 3 full, 4 half, 5 dark, 6 plant
uniform vec3 eye, forward, toSun, sun, above, below, haze, zenith;
uniform vec2 hazeRange;
uniform sampler2DArrayShadow shadows;
uniform mat4 toShadow[3];
uniform float shadowEnds[3], shadowTexels[3];
uniform int coneCount;
uniform vec3 coneAt[4], coneAlong[4], coneColour[4];
uniform vec2 coneShape[4]; // reach, and the cosine at the edge
out vec4 result;

// Returns the share of the sun's light that one shadow map lets through, with soft edges.
float sunIn(int map, vec3 normal)
{
    float texel = shadowTexels[map];
    if (texel <= 0.0)
        return 1.0;
    // Wider steps where pixels are small: edges are never sharper than about 3 cm.
    float spread = clamp(0.012 / texel, 1.0, 2.0);
    float slope = 1.0 - max(dot(normal, toSun), 0.0);
    vec3 lifted = place + normal * (texel * spread * (0.5 + 2.0 * slope)) +
                  toSun * (0.004 + 0.5 * texel);
    vec3 at = (toShadow[map] * vec4(lifted, 1.0)).xyz * 0.5 + 0.5;
    if (any(lessThan(at.xy, vec2(0.002))) || any(greaterThan(at.xy, vec2(0.998))))
        return 1.0;
    float stride = spread / float(textureSize(shadows, 0).x), lit = 0.0;
    for (int y = -1; y <= 1; ++y)
        for (int x = -1; x <= 1; ++x)
            lit += texture(shadows, vec4(at.xy + vec2(x, y) * stride, float(map), min(at.z, 1.0))) *
                   float((2 - abs(x)) * (2 - abs(y)));
    return lit / 16.0;
}

// Returns the share of the sun's light that arrives here.
float sunHere(vec3 normal)
{
    float depth = dot(place - eye, forward);
    if (!hasShadows || depth >= shadowEnds[2])
        return 1.0;
    int map = depth < shadowEnds[0] ? 0 : depth < shadowEnds[1] ? 1 : 2;
    float lit = sunIn(map, normal), end = shadowEnds[map];
    float next = smoothstep(end * 0.9, end, depth);
    if (next > 0.0)
        lit = mix(lit, map == 2 ? 1.0 : sunIn(map + 1, normal), next);
    return lit;
}

// Returns the light of lamps. Even at grazing angles, it leaves the ground visible.
vec3 lampsHere(vec3 normal)
{
    vec3 light = vec3(0.0);
    for (int i = 0; i < coneCount; ++i) {
        vec3 to = coneAt[i] - place;
        float away = max(length(to), 0.001), edge = coneShape[i].y;
        to /= away;
        float inside = smoothstep(edge, mix(edge, 1.0, 0.6), -dot(to, coneAlong[i]));
        float near = max(1.0 - away / coneShape[i].x, 0.0);
        light += coneColour[i] * (inside * near * near * (0.3 + 0.7 * max(dot(normal, to), 0.0)));
    }
    return light;
}

vec3 lightOn(vec3 normal, float sunlit)
{
    vec3 ambient = mix(below, above, normal.y * 0.5 + 0.5);
    // The sky is brighter on the side of the sun.
    ambient *= 0.94 + 0.06 * dot(normal, toSun);
    if (finish == 4)
        return ambient * 0.5 + 0.25;
    if (finish == 5)
        return ambient * 0.5;
    return ambient + sun * (max(dot(normal, toSun), 0.0) * sunlit) + lampsHere(normal);
}

vec3 skyIn(vec3 direction)
{
    vec3 sky = mix(haze, zenith, pow(max(direction.y, 0.0), 0.6));
    return mix(below * 0.8, sky, smoothstep(-0.1, 0.05, direction.y));
}

// Adds the sun's highlight and a reflection of the sky to a polished surface.
vec3 polished(vec3 lit, vec3 normal, vec3 toEye, float sunlit)
{
    bool very = finish == 2;
    float along = max(dot(normal, normalize(toSun + toEye)), 0.0);
    float highlight = very ? 0.55 * pow(along, 90.0) + 0.12 * pow(along, 12.0)
                           : 0.35 * pow(along, 22.0);
    float grazing = pow(1.0 - max(dot(normal, toEye), 0.0), 4.0);
    float mirrored = (very ? 0.14 : 0.05) + (very ? 0.45 : 0.25) * grazing;
    return mix(lit, skyIn(reflect(-toEye, normal)), mirrored) + sun * (highlight * sunlit);
}

// Keeps the drawing of bright surfaces, which would otherwise end in plain white.
vec3 softened(vec3 lit)
{
    const float knee = 0.82;
    vec3 over = max(lit - knee, 0.0) / (1.0 - knee);
    return min(lit, knee) + (1.0 - knee) * (1.0 - exp(-over));
}

// Returns how much of the pixel is covered. Lifts the alpha of the texture's smaller levels, so that
// fences and handrails do not vanish in the distance.
float coverage(float alpha)
{
    vec2 size = vec2(textureSize(picture, 0));
    vec2 dx = dFdx(pictureAt) * size, dy = dFdy(pictureAt) * size;
    float level = max(0.5 * log2(max(dot(dx, dx), dot(dy, dy))) + sharpness, 0.0);
    float lifted = alpha * (1.0 + 0.25 * level);
    return clamp((lifted - alphaLimit) / max(fwidth(lifted), 0.001) + 0.5, 0.0, 1.0);
}

// Repeats the texture at sizes and angles that never meet again; its alpha shows where meadows are
// dry.
vec4 groundColour()
{
    vec2 at = place.xz;
    vec3 near = texture(picture, at * 0.16).rgb;
    vec4 middle = texture(picture, mat2(0.8, 0.6, -0.6, 0.8) * at * 0.0271);
    float wide = texture(picture, mat2(0.28, 0.96, -0.96, 0.28) * at * 0.0043).a;
    float dry = smoothstep(0.25, 0.75, 0.5 * middle.a + 0.5 * wide);
    vec3 grass = near * (0.58 + middle.g);
    return vec4(grass * mix(vec3(0.88, 0.97, 0.86), vec3(1.14, 1.04, 1.02), dry), 1.0);
}

// Returns how much of a surface the haze hides. The ground fades towards the horizon, too, so that
// it does not end in an edge.
float hiddenAt(vec3 view, float distance)
{
    float hidden = clamp((distance - hazeRange.x) / (hazeRange.y - hazeRange.x), 0.0, 1.0);
    if (!isGround)
        return hidden;
    float grazing = 1.0 - smoothstep(0.0, 0.04, abs(view.y) / max(distance, 0.001));
    return max(hidden, grazing * smoothstep(20.0, 90.0, distance));
}

void main()
{
    vec4 base = colour;
    if (isGround && finish != 3)
        base = groundColour();
    else if (textured)
        base *= texture(picture, pictureAt, sharpness);
    if (opaque)
        base.a = 1.0;
    if (softEdge)
        base.a = coverage(base.a);
    if (softEdge ? base.a <= 0.0 : base.a < alphaLimit)
        discard;
    vec3 view = eye - place;
    float distance = length(view);
    vec3 lit = base.rgb;
    if (finish != 3) {
        vec3 normal = dot(facing, facing) > 0.0 ? normalize(facing) : vec3(0.0, 1.0, 0.0);
        if (finish == 6)
            normal = vec3(0.0, 1.0, 0.0);
        float sunlit = dot(normal, toSun) > 0.0 ? sunHere(normal) : 0.0;
        // Leaves let light through.
        if (finish == 6)
            sunlit = 0.35 + 0.65 * sunlit;
        lit *= lightOn(normal, sunlit);
        if (finish == 1 || finish == 2)
            lit = polished(lit, normal, view / max(distance, 0.001), sunlit);
        lit = softened(lit);
    }
    result = vec4(mix(lit, fades ? vec3(0.0) : haze, hiddenAt(view, distance)), base.a);
}
)";

inline constexpr char kSkyVertex[] = R"(#version 330 core
uniform vec3 right, up, forward;
out vec3 gaze;
void main()
{
    vec2 corner = vec2(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0);
    gaze = forward + right * corner.x + up * corner.y;
    gl_Position = vec4(corner, 0.0, 1.0);
}
)";

inline constexpr char kSkyFragment[] = R"(#version 330 core
in vec3 gaze;
uniform vec3 zenith, horizon, nadir, toSun, sun;
uniform bool hasClouds;
uniform sampler2D clouds;
out vec4 result;
void main()
{
    vec3 direction = normalize(gaze);
    float height = max(direction.y, 0.0);
    vec3 sky = mix(horizon, zenith, pow(height, 0.6));
    float glow = max(dot(direction, toSun), 0.0);
    sky += sun * (0.10 * pow(glow, 6.0) + 0.25 * pow(glow, 60.0));
    // A layer of clouds, bent towards the horizon.
    vec4 cloud = texture(clouds, direction.xz / (height + 0.16) * 0.19 + vec2(0.35, 0.1));
    if (hasClouds)
        sky = mix(sky, cloud.rgb, cloud.a * smoothstep(0.015, 0.16, height));
    sky = mix(sky, nadir, smoothstep(0.0, 0.3, -direction.y));
    result = vec4(sky, 1.0);
}
)";

inline constexpr char kShadowVertex[] = R"(#version 330 core
layout(location = 0) in vec3 position;
layout(location = 2) in vec2 uv;
uniform mat4 world[48], toMap;
out vec2 pictureAt;
void main()
{
    pictureAt = uv;
    gl_Position = toMap * (world[gl_InstanceID] * vec4(position, 1.0));
}
)";

inline constexpr char kShadowFragment[] = R"(#version 330 core
in vec2 pictureAt;
uniform sampler2D picture;
uniform float alphaLimit;
void main()
{
    if (alphaLimit > 0.0 && texture(picture, pictureAt).a < alphaLimit)
        discard;
}
)";

} // namespace korvat::shaders
