#pragma once

#include <epoxy/gl.h>

#include "Engine/core/Types.h"

namespace Engine::Platform {

/// Places of a vertex's parts, the same in every program.
enum eAttribute : GLuint { attributePosition, attributeColor, attributeUv, attributeSlot };

/// The program that draws sprites: one texture for all of them, or one out of several for each.
///
/// One shader text serves OpenGL 3.3 core and OpenGL ES 3.0; only the head differs.
class cGlProgram {
public:
    /// @param textures  how many are chosen from; 1 needs no attributeSlot
    /// Throws "A shader can't be compiled." or "A program can't be linked." and the driver's log.
    explicit cGlProgram(UInt textures);
    ~cGlProgram();
    cGlProgram(const cGlProgram&) = delete;
    cGlProgram& operator=(const cGlProgram&) = delete;

    /// Makes it the one that draws, with these values; what it has already is not sent again.
    void use(const Matrix& projection, Int alpha_reference);

private:
    GLuint m_program = 0;
    GLint m_projection_place = -1;
    GLint m_reference_place = -1;
    Matrix m_projection{0.0f};
    Int m_alpha_reference = -2;  ///< none yet
};

}  // namespace Engine::Platform
