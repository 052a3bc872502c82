#include "Engine/platform/sdl/GlUnits.h"

#include "Engine/core/CallStack.h"

namespace Engine::Platform {

namespace {

constexpr Float fringe_width = 0.7f;  ///< pixels

std::size_t getBlockAlignment() {
    GLint alignment = 0;
    glGetIntegerv(GL_UNIFORM_BUFFER_OFFSET_ALIGNMENT, &alignment);
    return static_cast<std::size_t>(std::max(alignment, 1));
}

/// Points an attribute at a part of the vertices; one that they lack is zero.
void setPart(eUnitAttribute attribute, const sMeshFormat& format, Int place, GLint floats) {
    if (place < 0) {
        glDisableVertexAttribArray(attribute);
        glVertexAttrib4f(attribute, 0.0f, 0.0f, 0.0f, 0.0f);
        return;
    }
    glEnableVertexAttribArray(attribute);
    glVertexAttribPointer(attribute, floats, GL_FLOAT, GL_FALSE, static_cast<GLsizei>(format.vertex_size),
                          reinterpret_cast<const void*>(static_cast<std::size_t>(place)));
}

void setBones(const sMeshFormat& format) {
    if (format.bones < 0)
        return glDisableVertexAttribArray(unitBones);
    glEnableVertexAttribArray(unitBones);
    glVertexAttribIPointer(unitBones, 4, GL_UNSIGNED_BYTE, static_cast<GLsizei>(format.vertex_size),
                           reinterpret_cast<const void*>(static_cast<std::size_t>(format.bones)));
}

}  // namespace

cGlUnits::cGlUnits(UInt most_soft_triangles)
    : m_most_soft_triangles(most_soft_triangles), m_blocks(getBlockAlignment()) {
    glGenVertexArrays(1, &m_vertex_array);
    glGenBuffers(1, &m_blocks_buffer);
    glClearDepthf(0.0f);
    glDepthFunc(GL_GREATER);
    glCullFace(GL_BACK);
    glFrontFace(GL_CW);
}

cGlUnits::~cGlUnits() {
    for (const UInt buffer : m_buffers)
        glDeleteBuffers(1, &buffer);
    glDeleteBuffers(1, &m_blocks_buffer);
    glDeleteVertexArrays(1, &m_vertex_array);
}

UInt cGlUnits::createBuffer(const void* data, std::size_t size) {
    ENGINE_MARK;
    while (glGetError() != GL_NO_ERROR) {
    }
    GLuint handle = 0;
    glGenBuffers(1, &handle);
    glBindBuffer(GL_ARRAY_BUFFER, handle);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(size), data, GL_STATIC_DRAW);
    if (glGetError() != GL_NO_ERROR) {
        glDeleteBuffers(1, &handle);
        throw String("A buffer of " + std::to_string(size) + " bytes can't be created.");
    }
    m_buffers.insert(handle);
    return handle;
}

void cGlUnits::releaseBuffer(UInt handle) {
    if (m_buffers.erase(handle) == 0)
        return;
    glDeleteBuffers(1, &handle);
    m_bound_vertices = m_bound_indices = 0;  // a new buffer may get the same handle
}

void cGlUnits::clear() {
    m_units.clear();
    m_blocks.clear();
    m_bodies = 0;
    m_triangles = 0;
}

UInt cGlUnits::add(const sUnitDraw& unit) {
    if (m_units.empty() || !unit.same_body)
        ++m_bodies;
    m_triangles += unit.triangles;
    m_units.push_back({.vertex_buffer = unit.vertex_buffer,
                       .index_buffer = unit.index_buffer,
                       .format = unit.format,
                       .triangles = unit.triangles,
                       .has_bones = unit.world.size() > 1,
                       .body = m_bodies - 1,
                       .blocks = m_blocks.add(unit)});
    return static_cast<UInt>(m_units.size() - 1);
}

void cGlUnits::send() {
    if (m_units.empty())
        return;
    m_blocks.close();
    const auto bytes = m_blocks.getBytes();
    glBindBuffer(GL_UNIFORM_BUFFER, m_blocks_buffer);
    glBufferData(GL_UNIFORM_BUFFER, static_cast<GLsizeiptr>(bytes.size()), bytes.data(), GL_STREAM_DRAW);
}

void cGlUnits::begin() {
    glBindVertexArray(m_vertex_array);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
}

void cGlUnits::end() {
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
}

void cGlUnits::bindMesh(const sUnit& unit) {
    if (m_bound_indices != unit.index_buffer) {
        m_bound_indices = unit.index_buffer;
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, unit.index_buffer);
    }
    if (m_bound_vertices == unit.vertex_buffer)
        return;
    m_bound_vertices = unit.vertex_buffer;
    const sMeshFormat& format = *findMeshFormat(unit.format);
    glBindBuffer(GL_ARRAY_BUFFER, unit.vertex_buffer);
    setPart(unitPosition, format, 0, 3);
    setPart(unitNormal, format, format.normal, 3);
    setPart(unitUv, format, format.uv, 2);
    setPart(unitWeights, format, format.weights, 3);
    setBones(format);
}

void cGlUnits::bindBlocks(const sUnit& unit) {
    const auto bind = [this](eUnitBlock block, std::size_t place, std::size_t size) {
        glBindBufferRange(GL_UNIFORM_BUFFER, block, m_blocks_buffer, static_cast<GLintptr>(place),
                          static_cast<GLsizeiptr>(size));
    };
    bind(blockSurface, unit.blocks.surface, cUnitBlocks::surface_size);
    bind(blockBones, unit.blocks.bones, cUnitBlocks::bones_size);
    bind(blockLights, unit.blocks.lights, cUnitBlocks::lights_size);
}

cGlUnitProgram& cGlUnits::getProgram(Bool has_bones) {
    std::optional<cGlUnitProgram>& program = has_bones ? m_skinned : m_still;
    return program ? *program : program.emplace(has_bones);
}

/// Each body has two slices of depth, its fringe's and in front of it its own.
void cGlUnits::setSlice(UInt slice) {
    const auto slices = static_cast<Float>(m_bodies * 2);
    glDepthRangef(static_cast<Float>(slice) / slices, static_cast<Float>(slice + 1) / slices);
}

void cGlUnits::draw(UInt place, const sDrawState& state, const Matrix& projection, Float pixel) {
    const sUnit& unit = m_units[place];
    cGlUnitProgram& program = getProgram(unit.has_bones);
    program.use(projection, state.alpha_reference);
    bindMesh(unit);
    bindBlocks(unit);
    const auto draw_triangles = [&](UInt slice, Float fringe) {
        setSlice(slice);
        program.setFringe(fringe);
        glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(unit.triangles * 3), GL_UNSIGNED_SHORT, nullptr);
    };
    const Bool is_mask = state.stencil == eStencil::write;
    is_mask ? glDisable(GL_DEPTH_TEST) : glEnable(GL_DEPTH_TEST);
    if (m_triangles <= m_most_soft_triangles && state.blend == eBlend::alpha && !state.wireframe)
        draw_triangles(unit.body * 2, fringe_width * pixel);
    draw_triangles(unit.body * 2 + 1, 0.0f);
}

}  // namespace Engine::Platform
