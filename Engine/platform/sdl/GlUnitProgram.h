#pragma once

#include <epoxy/gl.h>

#include "Engine/core/Types.h"

namespace Engine::Platform {

/// Places of a mesh vertex's parts, the same in both programs.
enum eUnitAttribute : GLuint { unitPosition, unitNormal, unitUv, unitWeights, unitBones };

/// Binding points of the uniform blocks.
enum eUnitBlock : GLuint { blockSurface, blockBones, blockLights };

/// The program that draws units, lighting them vertex by vertex: one for meshes that are as they are, one for those
/// that bones move.
class cGlUnitProgram {
public:
    /// Throws as linkGlProgram().
    explicit cGlUnitProgram(Bool has_bones);
    ~cGlUnitProgram() { glDeleteProgram(m_program); }
    cGlUnitProgram(const cGlUnitProgram&) = delete;
    cGlUnitProgram& operator=(const cGlUnitProgram&) = delete;

    /// Makes it the one that draws, with these values; what it has already is not sent again.
    void use(const Matrix& projection, Int alpha_reference);
    /// Of the program in use. Above 0 what is drawn next is that much larger all around and lets most light through:
    /// drawn below the unit itself it makes its edges look smooth.
    /// @param width  logical units
    void setFringe(Float width);

private:
    GLuint m_program = 0;
    GLint m_projection_place = -1;
    GLint m_reference_place = -1;
    GLint m_fringe_place = -1;
    Matrix m_projection{0.0f};
    Int m_alpha_reference = -2;  ///< none yet
};

}  // namespace Engine::Platform
