#pragma once

#include <epoxy/gl.h>

#include "Engine/core/String.h"

namespace Engine::Platform {

/// Makes a program of a vertex and a fragment shader. One text serves OpenGL 3.3 core and OpenGL ES 3.0: the head that
/// tells the two apart is put in front here. The caller deletes the program.
/// Throws "A shader can't be compiled." or "A program can't be linked." and the driver's log.
GLuint linkGlProgram(const String& vertex_text, const String& fragment_text);

}  // namespace Engine::Platform
