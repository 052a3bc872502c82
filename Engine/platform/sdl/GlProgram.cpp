#include "Engine/platform/sdl/GlProgram.h"

#include <glm/gtc/type_ptr.hpp>

#include "Engine/core/CallStack.h"
#include "Engine/core/String.h"
#include "Engine/platform/sdl/GlShaders.h"

namespace Engine::Platform {

namespace {

/// Colours lie in memory as blue, green, red, alpha.
constexpr const char* vertex_text = R"(
layout(location = 0) in vec3 position;
layout(location = 1) in vec4 color;
layout(location = 2) in vec2 uv;
uniform mat4 projection;
out vec4 v_color;
out vec2 v_uv;
#ifdef SLOTS
layout(location = 3) in uint slot;
flat out uint v_slot;
#endif
void main() {
    gl_Position = projection * vec4(position, 1.0);
    v_color = color.zyxw;
    v_uv = uv;
#ifdef SLOTS
    v_slot = slot;
#endif
}
)";

/// The size of a texel's step is taken before the choice, since it is not defined inside one. A reference below 0 drops
/// nothing.
constexpr const char* fragment_text = R"(
in vec4 v_color;
in vec2 v_uv;
out vec4 fragment;
uniform float alpha_reference;
#ifdef SLOTS
flat in uint v_slot;
uniform sampler2D textures[SLOTS];
vec4 sampleTexture() {
    vec2 dx = dFdx(v_uv);
    vec2 dy = dFdy(v_uv);
    switch (v_slot) {
        CASES
    }
    return vec4(0.0);
}
#else
uniform sampler2D textures[1];
vec4 sampleTexture() {
    return texture(textures[0], v_uv);
}
#endif
void main() {
    vec4 color = sampleTexture() * v_color;
    if (floor(color.a * 255.0 + 0.5) <= alpha_reference)
        discard;
    fragment = color;
}
)";

String makeText(const char* body, UInt textures) {
    String text;
    if (textures > 1)
        text += "#define SLOTS " + std::to_string(textures) + "\n";
    text += body;
    String cases;
    for (UInt i = 0; i < textures; ++i) {
        const String place = std::to_string(i);
        cases += "case " + place + "u: return textureGrad(textures[" + place + "], v_uv, dx, dy);\n";
    }
    const std::size_t place = text.find("CASES");
    return place == std::string::npos ? text : String(text.replace(place, 5, cases));
}

}  // namespace

cGlProgram::cGlProgram(UInt textures) {
    ENGINE_MARK;
    m_program = linkGlProgram(makeText(vertex_text, textures), makeText(fragment_text, textures));
    m_projection_place = glGetUniformLocation(m_program, "projection");
    m_reference_place = glGetUniformLocation(m_program, "alpha_reference");
    glUseProgram(m_program);
    const GLint samplers[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    glUniform1iv(glGetUniformLocation(m_program, "textures"), static_cast<GLsizei>(textures), samplers);
}

cGlProgram::~cGlProgram() {
    glDeleteProgram(m_program);
}

void cGlProgram::use(const Matrix& projection, Int alpha_reference) {
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

}  // namespace Engine::Platform
