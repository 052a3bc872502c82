#include "Engine/platform/sdl/GlShaders.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Engine/core/CallStack.h"

namespace Engine::Platform {

namespace {

String getLog(GLuint object, decltype(glGetShaderiv) get_size, decltype(glGetShaderInfoLog) get_text) {
    GLint size = 0;
    get_size(object, GL_INFO_LOG_LENGTH, &size);
    std::vector<char> text(static_cast<std::size_t>(std::max(size, 1)));
    get_text(object, size, nullptr, text.data());
    return text.data();
}

GLuint compile(GLenum kind, const String& text) {
    const GLuint shader = glCreateShader(kind);
    const char* lines[] = {epoxy_is_desktop_gl() ? "#version 330 core\n" : "#version 300 es\nprecision highp float;\n",
                           text.c_str()};
    glShaderSource(shader, 2, lines, nullptr);
    glCompileShader(shader);
    GLint done = 0;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &done);
    if (!done)
        throw String("A shader can't be compiled.\n" + getLog(shader, glGetShaderiv, glGetShaderInfoLog));
    return shader;
}

}  // namespace

GLuint linkGlProgram(const String& vertex_text, const String& fragment_text) {
    ENGINE_MARK;
    const GLuint program = glCreateProgram();
    for (const auto& [kind, text] : {std::pair(GL_VERTEX_SHADER, &vertex_text), {GL_FRAGMENT_SHADER, &fragment_text}}) {
        const GLuint shader = compile(static_cast<GLenum>(kind), *text);
        glAttachShader(program, shader);
        glDeleteShader(shader);  // lives as long as the program
    }
    glLinkProgram(program);
    GLint done = 0;
    glGetProgramiv(program, GL_LINK_STATUS, &done);
    if (!done)
        throw String("A program can't be linked.\n" + getLog(program, glGetProgramiv, glGetProgramInfoLog));
    return program;
}

}  // namespace Engine::Platform
