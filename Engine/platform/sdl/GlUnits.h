#pragma once

#include <epoxy/gl.h>

#include <optional>
#include <set>
#include <vector>

#include "Engine/platform/GraphicsDevice.h"
#include "Engine/platform/sdl/GlUnitProgram.h"
#include "Engine/platform/sdl/UnitBlocks.h"

namespace Engine::Platform {

/// The part of the device that draws units: buffers of meshes, and one draw call for each unit.
///
/// The units of a frame are gathered and sent together before the first one is drawn. Each body has a slice of the
/// depth range for itself, the later the nearer, so that it covers those before it without depth being cleared in
/// between. Edges are softened by a fringe, which costs each unit a second draw: a frame with too many triangles for
/// that does without.
class cGlUnits {
public:
    /// @param most_soft_triangles  of all units of a frame that has soft edges
    explicit cGlUnits(UInt most_soft_triangles);
    ~cGlUnits();
    cGlUnits(const cGlUnits&) = delete;
    cGlUnits& operator=(const cGlUnits&) = delete;

    /// Throws "A buffer of <size> bytes can't be created."
    UInt createBuffer(const void* data, std::size_t size);
    void releaseBuffer(UInt handle);

    void clear();                     ///< at the beginning of a frame
    UInt add(const sUnitDraw& unit);  ///< gives its place among the frame's units
    void send();                      ///< after the last one

    /// Draws units from here to end(): depth, culling, buffers and programs are this class's, all else is set already.
    void begin();
    /// Throws as linkGlProgram().
    /// @param pixel  the size of a pixel, logical units
    void draw(UInt place, const sDrawState& state, const Matrix& projection, Float pixel);
    void end();

private:
    struct sUnit {
        UInt vertex_buffer = 0;
        UInt index_buffer = 0;
        UInt format = 0;
        UInt triangles = 0;
        Bool has_bones = false;
        UInt body = 0;  ///< counted from 0 in the frame
        sUnitBlocks blocks;
    };

    void setSlice(UInt slice);
    void bindMesh(const sUnit& unit);
    void bindBlocks(const sUnit& unit);

    cGlUnitProgram& getProgram(Bool has_bones);

    std::optional<cGlUnitProgram> m_still;    ///< made when it is needed first, as is the other
    std::optional<cGlUnitProgram> m_skinned;  ///< for meshes that bones move
    GLuint m_vertex_array = 0;
    GLuint m_blocks_buffer = 0;
    std::set<UInt> m_buffers;
    UInt m_bound_vertices = 0;  ///< what the vertex array points to
    UInt m_bound_indices = 0;
    std::vector<sUnit> m_units;
    UInt m_bodies = 0;
    UInt m_triangles = 0;  ///< of all units of the frame
    UInt m_most_soft_triangles;
    cUnitBlocks m_blocks;
};

}  // namespace Engine::Platform
