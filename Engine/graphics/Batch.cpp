#include "Engine/graphics/Batch.h"

#include <algorithm>
#include <cmath>

#include "Engine/core/CallStack.h"

namespace Engine {

namespace {

constexpr UInt max_chunk_vertices = 65536;  ///< that 16-bit indices can name
constexpr UInt sprite_vertices = 4;
constexpr UInt sprite_indices = 6;

/// Weights of the four corners at a place inside the quad.
struct sWeights {
    sWeights(Float s, Float t) : corners{(1 - s) * (1 - t), s * (1 - t), (1 - s) * t, s * t} {}

    Float corners[4];
};

UInt mixColors(const iGraphics::sSprite& sprite, const sWeights& weights) {
    UInt res = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        Float value = 0.0f;
        for (int i = 0; i < 4; ++i)
            value += weights.corners[i] * static_cast<Float>(sprite.corners[i].color >> shift & 0xFF);
        res |= static_cast<UInt>(std::clamp(std::round(value), 0.0f, 255.0f)) << shift;
    }
    return res;
}

Vector2 mixPlaces(const iGraphics::sSprite& sprite, const sWeights& weights) {
    Vector2 res(0.0f);
    for (int i = 0; i < 4; ++i)
        res += weights.corners[i] * Vector2(sprite.corners[i].x, sprite.corners[i].y);
    return res;
}

}  // namespace

void cBatch::resize(UInt sprites) {
    const UInt vertices = countVertices();
    const UInt indices = countIndices();
    m_capacity = std::max(
        {sprites, (vertices + sprite_vertices - 1) / sprite_vertices, (indices + sprite_indices - 1) / sprite_indices});
    m_vertices.resize(std::size_t{m_capacity} * sprite_vertices);
    m_indices.resize(std::size_t{m_capacity} * sprite_indices);
    m_next_vertex = m_vertices.data() + vertices;
    m_next_index = m_indices.data() + indices;
    m_chunk_begin = m_vertices.data() + m_current.first_vertex;
    m_quads_end = m_next_vertex;
}

void cBatch::clear() {
    m_chunks.clear();
    m_current = {};
    m_next_vertex = m_vertices.data();
    m_next_index = m_indices.data();
    m_chunk_begin = m_quads_end = m_next_vertex;
}

void cBatch::cutChunk() {
    m_current.vertices = countChunkVertices();
    m_current.triangles = (countIndices() - m_current.first_index) / 3;
    m_chunks.push_back(m_current);
    m_current = {.first_index = countIndices(), .first_vertex = countVertices()};
    m_chunk_begin = m_quads_end = m_next_vertex;
}

void cBatch::makeRoom(const iGraphics::sSprite& sprite, UInt texture, UInt render_type, UInt vertices, UInt indices) {
    const Bool same_state = m_current.texture == texture && m_current.render_type == render_type &&
                            m_current.shader == sprite.shader && m_current.constants == sprite.constants &&
                            !m_current.unit;
    if (!same_state || countChunkVertices() + vertices > max_chunk_vertices) {
        if (!isCurrentEmpty())
            cutChunk();
        m_current.texture = texture;
        m_current.render_type = render_type;
        m_current.shader = sprite.shader;
        m_current.constants = sprite.constants;
    }
    const UInt vertex_sum = countVertices() + vertices;
    const UInt index_sum = countIndices() + indices;
    if (vertex_sum > m_vertices.size() || index_sum > m_indices.size())
        resize(std::max({m_capacity * 2, vertex_sum / sprite_vertices + 1, index_sum / sprite_indices + 1}));
    m_quads_end = m_next_vertex;
}

void cBatch::prepareQuads(const iGraphics::sSprite& sprite, UInt texture, UInt render_type) {
    makeRoom(sprite, texture, render_type, sprite_vertices, sprite_indices);
    const UInt fitting = std::min({(max_chunk_vertices - countChunkVertices()) / sprite_vertices,
                                   (static_cast<UInt>(m_vertices.size()) - countVertices()) / sprite_vertices,
                                   (static_cast<UInt>(m_indices.size()) - countIndices()) / sprite_indices});
    m_quads_end = m_next_vertex + std::size_t{fitting} * sprite_vertices;
}

void cBatch::addGrid(const iGraphics::sSprite& sprite, const sTextureUse& texture, UInt render_type,
                     const sPlacement& placement) {
    const UInt cells = std::clamp(sprite.tesselation, 1u, max_tesselation);
    const UInt vertices = (cells + 1) * (cells + 1);
    const UInt indices = cells * cells * sprite_indices;
    makeRoom(sprite, texture.handle, render_type, vertices, indices);
    writeGridIndices(cells);
    writeGrid(sprite, cells, texture.uv_scale, placement);
    m_next_vertex += vertices;
    m_next_index += indices;
    m_quads_end = m_next_vertex;
}

void cBatch::add(const iGraphics::sUnit& unit, UInt render_type) {
    if (!isCurrentEmpty())
        cutChunk();
    m_current.render_type = render_type;
    m_current.unit = &unit;
    m_quads_end = m_next_vertex;
}

void cBatch::close() {
    if (!isCurrentEmpty())
        cutChunk();
}

void cBatch::writeGrid(const iGraphics::sSprite& sprite, UInt cells, Vector2 uv_scale, const sPlacement& placement) {
    Platform::sVertex* vertex = m_next_vertex;
    for (UInt i = 0; i <= cells; ++i) {
        const Float t = static_cast<Float>(i) / static_cast<Float>(cells);
        const Float v = (sprite.v0 + (sprite.v1 - sprite.v0) * t) * uv_scale.y;
        for (UInt j = 0; j <= cells; ++j) {
            const Float s = static_cast<Float>(j) / static_cast<Float>(cells);
            const sWeights weights(s, t);
            const Vector2 place = mixPlaces(sprite, weights) * placement.scale + placement.offset;
            const Float u = (sprite.u0 + (sprite.u1 - sprite.u0) * s) * uv_scale.x;
            *vertex++ = {place.x, place.y, 0.0f, mixColors(sprite, weights), u, v};
        }
    }
}

void cBatch::writeGridIndices(UInt cells) {
    const UInt row = cells + 1;
    std::uint16_t* index = m_next_index;
    for (UInt i = 0; i < cells; ++i) {
        for (UInt j = 0; j < cells; ++j) {
            const UInt a = countChunkVertices() + i * row + j;  // the cell's first vertex
            for (const UInt place : {a, a + row, a + 1, a + 1, a + row, a + row + 1})
                *index++ = static_cast<std::uint16_t>(place);
        }
    }
}

}  // namespace Engine
