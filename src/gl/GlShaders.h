// SPDX-License-Identifier: MIT
#pragma once

/// The programs for the graphics card. OpenGL reads the rows of a korvat::Transform as columns, so
/// in the shaders a vector is on the right of its matrix.
namespace korvat::shaders {

inline constexpr char kSurfaceVertex[] = R"(#version 330 core
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec2 uv;
uniform mat4 world, viewProjection;
out vec3 place, facing;
out vec2 pictureAt;
void main()
{
    vec4 moved = world * vec4(position, 1.0);
    place = moved.xyz;
    facing = mat3(world) * normal;
    pictureAt = uv;
    gl_Position = viewProjection * moved;
}
)";

inline constexpr char kSurfaceFragment[] = R"(#version 330 core
in vec3 place, facing;
in vec2 pictureAt;
uniform sampler2D picture;
uniform bool textured, opaque, fades, softEdge;
uniform vec4 colour;
uniform float alphaLimit, sharpness;
uniform int finish; // 0 normal, 1 shiny, 2 very shiny, 3 full, 4 half, 5 dark
uniform vec3 eye, toSun, sun, above, below, haze;
uniform vec2 hazeRange;
out vec4 result;

vec3 lightOn(vec3 normal)
{
    if (finish == 3)
        return vec3(1.0);
    vec3 ambient = mix(below, above, normal.y * 0.5 + 0.5);
    if (finish == 4)
        return ambient * 0.5 + 0.25;
    if (finish == 5)
        return ambient * 0.5;
    return ambient + sun * max(dot(normal, toSun), 0.0);
}

float highlightOn(vec3 normal, vec3 toEye)
{
    if (finish != 1 && finish != 2)
        return 0.0;
    float along = max(dot(normal, normalize(toSun + toEye)), 0.0);
    return finish == 1 ? 0.35 * pow(along, 25.0) : 0.6 * pow(along, 750.0);
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

void main()
{
    vec4 base = colour;
    if (textured)
        base *= texture(picture, pictureAt, sharpness);
    if (opaque)
        base.a = 1.0;
    if (softEdge)
        base.a = coverage(base.a);
    if (softEdge ? base.a <= 0.0 : base.a < alphaLimit)
        discard;
    vec3 normal = dot(facing, facing) > 0.0 ? normalize(facing) : vec3(0.0, 1.0, 0.0);
    vec3 view = eye - place;
    float distance = length(view);
    vec3 lit = base.rgb * lightOn(normal) + sun * highlightOn(normal, view / max(distance, 0.001));
    float hidden = clamp((distance - hazeRange.x) / (hazeRange.y - hazeRange.x), 0.0, 1.0);
    result = vec4(mix(lit, fades ? vec3(0.0) : haze, hidden), base.a);
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
uniform vec3 zenith, horizon;
out vec4 result;
void main()
{
    float height = max(normalize(gaze).y, 0.0);
    result = vec4(mix(horizon, zenith, pow(height, 0.6)), 1.0);
}
)";

} // namespace korvat::shaders
