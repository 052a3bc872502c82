#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Engine/graphics/Texture.h"
#include "Engine/graphics/iGraphics.h"
#include "Engine/platform/GraphicsDevice.h"

namespace Engine {

/// Stands for the texture of a sprite without one.
inline constexpr sTextureUse no_texture;

/// One run of the batch with one state.
struct sChunk {
    UInt texture = 0;  ///< handle of the device
    UInt first_index = 0;
    UInt triangles = 0;
    UInt vertices = 0;
    UInt render_type = 0;
    UInt first_vertex = 0;  ///< what its indices count from
    const cShader* shader = nullptr;
    const std::vector<glm::vec4>* constants = nullptr;
    const iGraphics::sUnit* unit = nullptr;  ///< a unit's chunk has no vertices of its own
};

/// Where logical coordinates lie on the display: place x scale + offset, pixels.
struct sPlacement {
    sPlacement() = default;
    sPlacement(Vector2 new_scale, Vector2 new_offset) : scale(new_scale), offset(new_offset), is_identity(false) {}

    Vector2 scale{1.0f};
    Vector2 offset{0.0f};
    Bool is_identity = true;  ///< scale 1 and offset 0: places are taken over as they are
};

/// The vertices, indices and chunks of one frame. Grows when a frame needs more than it holds, so nothing handed in
/// is lost; once it has grown, filling it allocates nothing.
class cBatch {
public:
    /// Cells per side beyond this have more vertices than one chunk's indices can name.
    static constexpr UInt max_tesselation = 255;

    /// Makes room for that many sprites of one cell, but never for fewer than were added since clear().
    void resize(UInt sprites);
    UInt getCapacity() const { return m_capacity; }  ///< sprites of one cell

    void clear();  ///< at the beginning of a frame
    /// Writes the sprite's grid behind what is there, in a new chunk if its state differs from the current one's.
    /// A tesselation outside 1 to max_tesselation is brought to the nearer end.
    void add(const iGraphics::sSprite& sprite, const sTextureUse& texture, UInt render_type,
             const sPlacement& placement) {
        if (sprite.tesselation == 1)
            addQuad(sprite, texture, render_type, placement);
        else
            addGrid(sprite, texture, render_type, placement);
    }
    void add(const iGraphics::sUnit& unit, UInt render_type);
    void close();  ///< at the end of a frame: the last chunk joins the list

    std::span<const sChunk> getChunks() const { return m_chunks; }  ///< after close()
    std::span<const Platform::sVertex> getVertices() const { return {m_vertices.data(), countVertices()}; }
    std::span<const std::uint16_t> getIndices() const { return {m_indices.data(), countIndices()}; }

private:
    // The short way of a sprite of one cell, which nearly all are: it is one with the caller's code.
    void addQuad(const iGraphics::sSprite& sprite, const sTextureUse& texture, UInt render_type,
                 const sPlacement& placement) {
        if (m_next_vertex == m_quads_end || m_current.texture != texture.handle ||
            m_current.render_type != render_type || m_current.shader != sprite.shader ||
            m_current.constants != sprite.constants)
            prepareQuads(sprite, texture.handle, render_type);
        writeQuadIndices(static_cast<UInt>(m_next_vertex - m_chunk_begin), m_next_index);
        writeQuad(sprite, texture.uv_scale, placement, m_next_vertex);
        m_next_vertex += 4;
        m_next_index += 6;
    }
    static void writeQuad(const iGraphics::sSprite& sprite, Vector2 uv_scale, const sPlacement& placement,
                          Platform::sVertex* target);
    static void writeQuadIndices(UInt first, std::uint16_t* target);
    void prepareQuads(const iGraphics::sSprite& sprite, UInt texture, UInt render_type);
    void addGrid(const iGraphics::sSprite& sprite, const sTextureUse& texture, UInt render_type,
                 const sPlacement& placement);
    /// Afterwards the current chunk is the sprite's and there is room for that many vertices and indices.
    void makeRoom(const iGraphics::sSprite& sprite, UInt texture, UInt render_type, UInt vertices, UInt indices);
    void cutChunk();
    void writeGrid(const iGraphics::sSprite& sprite, UInt cells, Vector2 uv_scale, const sPlacement& placement);
    void writeGridIndices(UInt cells);
    UInt countVertices() const { return static_cast<UInt>(m_next_vertex - m_vertices.data()); }
    UInt countChunkVertices() const { return static_cast<UInt>(m_next_vertex - m_chunk_begin); }
    Bool isCurrentEmpty() const { return m_next_vertex == m_chunk_begin && !m_current.unit; }
    UInt countIndices() const { return static_cast<UInt>(m_next_index - m_indices.data()); }

    UInt m_capacity = 0;
    std::vector<Platform::sVertex> m_vertices;
    std::vector<std::uint16_t> m_indices;
    std::vector<sChunk> m_chunks;
    sChunk m_current;                            ///< its vertices and triangles are counted when it is cut
    Platform::sVertex* m_next_vertex = nullptr;  ///< in m_vertices
    std::uint16_t* m_next_index = nullptr;       ///< in m_indices
    Platform::sVertex* m_chunk_begin = nullptr;  ///< the current chunk's first vertex
    /// Up to here sprites of one cell fit the current chunk and the buffers; equal to m_next_vertex it says: look anew.
    Platform::sVertex* m_quads_end = nullptr;
};

// The grid of one cell, whose vertices are the corners themselves. All is read before anything is written: the compiler
// can't know that sprite and buffer never overlap, and would read the sprite again after each write.
inline void cBatch::writeQuad(const iGraphics::sSprite& sprite, Vector2 uv_scale, const sPlacement& placement,
                              Platform::sVertex* target) {
    const auto& corners = sprite.corners;
    Float x0 = corners[0].x, x1 = corners[1].x, x2 = corners[2].x, x3 = corners[3].x;
    Float y0 = corners[0].y, y1 = corners[1].y, y2 = corners[2].y, y3 = corners[3].y;
    const UInt color0 = corners[0].color, color1 = corners[1].color;
    const UInt color2 = corners[2].color, color3 = corners[3].color;
    const Float left = sprite.u0 * uv_scale.x, right = sprite.u1 * uv_scale.x;
    const Float top = sprite.v0 * uv_scale.y, bottom = sprite.v1 * uv_scale.y;
    if (!placement.is_identity) {
        for (Float* x : {&x0, &x1, &x2, &x3})
            *x = *x * placement.scale.x + placement.offset.x;
        for (Float* y : {&y0, &y1, &y2, &y3})
            *y = *y * placement.scale.y + placement.offset.y;
    }
    target[0] = {x0, y0, 0.0f, color0, left, top};
    target[1] = {x1, y1, 0.0f, color1, right, top};
    target[2] = {x2, y2, 0.0f, color2, left, bottom};
    target[3] = {x3, y3, 0.0f, color3, right, bottom};
}

inline void cBatch::writeQuadIndices(UInt first, std::uint16_t* target) {
    for (const UInt place : {0u, 2u, 1u, 1u, 2u, 3u})
        *target++ = static_cast<std::uint16_t>(first + place);
}

}  // namespace Engine
