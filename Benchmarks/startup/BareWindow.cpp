// The peer of the start-up benchmark: the least that a program of this kind can do before its first picture. An SDL2
// window with OpenGL 3.3 core and one textured quad; ends when that has been shown.
#include <SDL.h>
#include <epoxy/gl.h>

#include <vector>

namespace {

const char* const vertex_source = R"(#version 330 core
const vec2 corners[4] = vec2[](vec2(-1, -1), vec2(1, -1), vec2(-1, 1), vec2(1, 1));
out vec2 uv;
void main() { uv = corners[gl_VertexID] * 0.5 + 0.5; gl_Position = vec4(corners[gl_VertexID], 0, 1); })";

const char* const fragment_source = R"(#version 330 core
in vec2 uv;
uniform sampler2D picture;
out vec4 color;
void main() { color = texture(picture, uv); })";

GLuint compile(GLenum type, const char* source) {
    const GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    return shader;
}

}  // namespace

int main() {
    SDL_Init(SDL_INIT_VIDEO);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 3);
    SDL_Window* window =
        SDL_CreateWindow("bare", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 800, 600, SDL_WINDOW_OPENGL);
    const SDL_GLContext context = window ? SDL_GL_CreateContext(window) : nullptr;
    if (!context)
        return 1;

    const GLuint program = glCreateProgram();
    glAttachShader(program, compile(GL_VERTEX_SHADER, vertex_source));
    glAttachShader(program, compile(GL_FRAGMENT_SHADER, fragment_source));
    glLinkProgram(program);
    glUseProgram(program);

    const std::vector<unsigned char> pixels(800 * 600 * 4, 128);
    GLuint texture = 0;
    GLuint array = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, 800, 600, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    glGenVertexArrays(1, &array);
    glBindVertexArray(array);
    glViewport(0, 0, 800, 600);
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    SDL_GL_SwapWindow(window);
    glFinish();

    SDL_GL_DeleteContext(context);
    SDL_DestroyWindow(window);
    SDL_Quit();
    return 0;
}
