#include "Engine/platform/sdl/GlUnitProgram.h"

#include <glm/gtc/type_ptr.hpp>

#include "Engine/core/CallStack.h"
#include "Engine/graphics/Lighting.h"
#include "Engine/platform/MeshFormat.h"
#include "Engine/platform/sdl/GlShaders.h"

namespace Engine::Platform {

namespace {

/// Blocks as cUnitBlocks writes them; the lighting is that of Lighting.h.
constexpr const char* vertex_text = R"(
layout(location = 0) in vec3 position;
layout(location = 1) in vec3 normal;
layout(location = 2) in vec2 uv;
uniform mat4 projection;
uniform float fringe;
layout(std140) uniform Surface {
    vec4 diffuse;
    vec4 ambient;
    vec4 specular;
    vec4 emissive;
    vec4 power_lit;
};
layout(std140) uniform Bones {
    vec4 rows[3 * BONES];
};
struct Light {
    vec4 diffuse;
    vec4 specular;
    vec4 ambient;
    vec4 position_type;
    vec4 direction_range;
    vec4 attenuation_falloff;
    vec4 cone;
};
layout(std140) uniform Lights {
    vec4 table_ambient;
    vec4 count;
    Light lights[LIGHTS];
};
out vec4 v_color;
out vec3 v_specular;
out vec2 v_uv;

#ifdef SKINNED
layout(location = 3) in vec3 weights;
layout(location = 4) in uvec4 bones;
void getWorld(out vec4 x, out vec4 y, out vec4 z) {
    vec4 w = vec4(weights, 1.0 - weights.x - weights.y - weights.z);
    uvec4 at = bones * 3u;
    x = rows[at.x] * w.x + rows[at.y] * w.y + rows[at.z] * w.z + rows[at.w] * w.w;
    y = rows[at.x + 1u] * w.x + rows[at.y + 1u] * w.y + rows[at.z + 1u] * w.z + rows[at.w + 1u] * w.w;
    z = rows[at.x + 2u] * w.x + rows[at.y + 2u] * w.y + rows[at.z + 2u] * w.z + rows[at.w + 2u] * w.w;
}
#else
void getWorld(out vec4 x, out vec4 y, out vec4 z) {
    x = rows[0];
    y = rows[1];
    z = rows[2];
}
#endif

/// Direction to the light, and how much of it arrives.
vec4 reach(Light light, vec3 place) {
    if (light.position_type.w == 3.0)
        return vec4(-light.direction_range.xyz, 1.0);
    vec3 way = light.position_type.xyz - place;
    float d = length(way);
    vec3 to_light = d > 0.0 ? way / d : vec3(0.0, 0.0, 1.0);
    if (d > light.direction_range.w)
        return vec4(to_light, 0.0);
    vec3 weaken = light.attenuation_falloff.xyz;
    float part = 1.0 / max(weaken.x + weaken.y * d + weaken.z * d * d, 0.000001);
    if (light.position_type.w == 1.0)
        return vec4(to_light, part);
    if (light.position_type.w != 2.0)
        return vec4(to_light, 0.0);
    float rho = dot(-to_light, light.direction_range.xyz);
    if (rho <= light.cone.y)
        return vec4(to_light, 0.0);
    if (rho <= light.cone.x)
        part *= pow((rho - light.cone.y) / (light.cone.x - light.cone.y), light.attenuation_falloff.w);
    return vec4(to_light, part);
}

void addLight(Light light, vec3 place, vec3 face, inout vec3 ambient_sum, inout vec3 diffuse_sum,
              inout vec3 specular_sum) {
    vec4 way = reach(light, place);
    float cosine = dot(face, way.xyz);
    ambient_sum += light.ambient.rgb * way.w;
    if (cosine <= 0.0)
        return;
    diffuse_sum += light.diffuse.rgb * (cosine * way.w);
    if (light.specular.rgb == vec3(0.0))
        return;
    float gleam = max(dot(face, normalize(way.xyz + vec3(0.0, 0.0, 1.0))), 0.0001);
    specular_sum += light.specular.rgb * (pow(gleam, power_lit.x) * way.w);
}

void main() {
    vec4 x, y, z;
    getWorld(x, y, z);
    vec4 p = vec4(position, 1.0);
    vec3 place = vec3(dot(x, p), dot(y, p), dot(z, p));

    // What goes straight through turned and stretched faces: each row is the product of the other two.
    vec3 turned = vec3(dot(cross(y.xyz, z.xyz), normal), dot(cross(z.xyz, x.xyz), normal),
                       dot(cross(x.xyz, y.xyz), normal));
    float size = length(turned);
    vec3 face = size > 0.0 ? turned / size : vec3(0.0);
    gl_Position = projection * vec4(place.xy + face.xy * fringe, place.z, 1.0);
    v_uv = uv;
    v_color = clamp(diffuse, 0.0, 1.0);
    v_color.a *= fringe > 0.0 ? 0.4 : 1.0;
    v_specular = vec3(0.0);
    if (power_lit.y == 0.0)
        return;

    vec3 ambient_sum = table_ambient.rgb;
    vec3 diffuse_sum = vec3(0.0);
    vec3 specular_sum = vec3(0.0);
    for (int i = 0; i < int(count.x); ++i)
        addLight(lights[i], place, face, ambient_sum, diffuse_sum, specular_sum);
    v_color.rgb = clamp(emissive.rgb + ambient.rgb * ambient_sum + diffuse.rgb * diffuse_sum, 0.0, 1.0);
    v_specular = clamp(specular.rgb * specular_sum, 0.0, 1.0);
}
)";

constexpr const char* fragment_text = R"(
in vec4 v_color;
in vec3 v_specular;
in vec2 v_uv;
out vec4 fragment;
uniform sampler2D picture;
uniform float alpha_reference;
void main() {
    vec4 color = texture(picture, v_uv) * v_color;
    if (floor(color.a * 255.0 + 0.5) <= alpha_reference)
        discard;
    fragment = vec4(color.rgb + v_specular, color.a);
}
)";

String makeVertexText(Bool has_bones) {
    String text;
    text += "#define LIGHTS " + std::to_string(sLightConfig::max_lights) + "\n";
    text += "#define BONES " + std::to_string(has_bones ? max_bones : 1) + "\n";
    if (has_bones)
        text += "#define SKINNED\n";
    return String(text + vertex_text);
}

}  // namespace

cGlUnitProgram::cGlUnitProgram(Bool has_bones) {
    ENGINE_MARK;
    m_program = linkGlProgram(makeVertexText(has_bones), fragment_text);
    m_projection_place = glGetUniformLocation(m_program, "projection");
    m_reference_place = glGetUniformLocation(m_program, "alpha_reference");
    m_fringe_place = glGetUniformLocation(m_program, "fringe");
    const auto bind = [this](const char* name, eUnitBlock block) {
        glUniformBlockBinding(m_program, glGetUniformBlockIndex(m_program, name), block);
    };
    bind("Surface", blockSurface);
    bind("Bones", blockBones);
    bind("Lights", blockLights);
    glUseProgram(m_program);
    glUniform1i(glGetUniformLocation(m_program, "picture"), 0);
}

void cGlUnitProgram::use(const Matrix& projection, Int alpha_reference) {
    glUseProgram(m_program);
    if (m_projection != projection) {
        m_projection = projection;
        glUniformMatrix4fv(m_projection_place, 1, GL_FALSE, glm::value_ptr(projection));
    }
    if (m_alpha_reference != alpha_reference) {
        m_alpha_reference = alpha_reference;
        glUniform1f(m_reference_place, static_cast<Float>(alpha_reference));
    }
}

void cGlUnitProgram::setFringe(Float width) {
    glUniform1f(m_fringe_place, width);
}

}  // namespace Engine::Platform
