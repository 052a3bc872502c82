#include "Engine/platform/headless/HeadlessGraphicsDevice.h"

#include "Engine/core/CallStack.h"
#include "Engine/platform/MeshFormat.h"

namespace Engine::Platform {

Bool cHeadlessGraphicsDevice::reset(UInt width, UInt height) {
    return width > 0 && height > 0;
}

eDeviceState cHeadlessGraphicsDevice::present() {
    ++m_counters.pictures;
    return eDeviceState::ready;
}

sTextureSurface cHeadlessGraphicsDevice::createTexture(UInt width, UInt height, const std::uint8_t*) {
    ENGINE_MARK;
    if (width == 0 || height == 0 || width > getMaxTextureSize() || height > getMaxTextureSize())
        throw String("Texture of " + std::to_string(width) + " x " + std::to_string(height) + " can't be created.");
    m_textures.insert(++m_last_texture);
    return {m_last_texture, width, height};
}

void cHeadlessGraphicsDevice::releaseTexture(UInt handle) {
    ENGINE_MARK;
    if (handle != 0 && m_textures.erase(handle) == 0)
        throw String("cHeadlessGraphicsDevice::releaseTexture(): no texture " + std::to_string(handle));
}

UInt cHeadlessGraphicsDevice::createVertexBuffer(std::span<const std::uint8_t> vertices) {
    m_buffers[++m_last_buffer] = vertices.size_bytes();
    return m_last_buffer;
}

UInt cHeadlessGraphicsDevice::createIndexBuffer(std::span<const std::uint16_t> indices) {
    m_buffers[++m_last_buffer] = indices.size_bytes();
    return m_last_buffer;
}

void cHeadlessGraphicsDevice::releaseBuffer(UInt handle) {
    ENGINE_MARK;
    if (handle != 0 && m_buffers.erase(handle) == 0)
        throw String("cHeadlessGraphicsDevice::releaseBuffer(): no buffer " + std::to_string(handle));
}

void cHeadlessGraphicsDevice::writeBatch(std::span<const sVertex> vertices, std::span<const std::uint16_t> indices) {
    m_vertices = vertices.size();
    m_indices = indices.size();
}

void cHeadlessGraphicsDevice::clear(UInt) {
    m_counters = {.pictures = m_counters.pictures};
    m_bound = 0;
}

void cHeadlessGraphicsDevice::beginScene() {
    m_in_scene = true;
}

void cHeadlessGraphicsDevice::checkDraw(UInt texture) const {
    if (!m_in_scene)
        throw String("cHeadlessGraphicsDevice::draw(): not in a scene");
    if (texture != 0 && !m_textures.contains(texture))
        throw String("cHeadlessGraphicsDevice::draw(): no texture " + std::to_string(texture));
}

void cHeadlessGraphicsDevice::count(UInt texture, UInt triangles) {
    ++m_counters.draws;
    m_counters.triangles += triangles;
    m_counters.texture_changes += texture != m_bound;
    m_bound = texture;
}

void cHeadlessGraphicsDevice::draw(const sDrawState&, const sDrawRun& run) {
    ENGINE_MARK;
    checkDraw(run.texture);
    if (std::size_t{run.first_index} + std::size_t{run.triangles} * 3 > m_indices ||
        std::size_t{run.first_vertex} + run.vertices > m_vertices)
        throw String("cHeadlessGraphicsDevice::draw(): the run lies outside the batch");
    count(run.texture, run.triangles);
}

void cHeadlessGraphicsDevice::drawUnit(const sDrawState&, const sUnitDraw& unit) {
    ENGINE_MARK;
    checkDraw(unit.texture);
    if (!m_buffers.contains(unit.vertex_buffer) || !m_buffers.contains(unit.index_buffer))
        throw String("cHeadlessGraphicsDevice::drawUnit(): a buffer is gone");
    if (!findMeshFormat(unit.format) || unit.world.empty() || !unit.material)
        throw String("cHeadlessGraphicsDevice::drawUnit(): the unit lacks a part");
    if (std::size_t{unit.triangles} * 3 * sizeof(std::uint16_t) > m_buffers[unit.index_buffer])
        throw String("cHeadlessGraphicsDevice::drawUnit(): more triangles than the mesh has");
    ++m_counters.units;
    count(unit.texture, unit.triangles);
}

void cHeadlessGraphicsDevice::endScene() {
    m_in_scene = false;
}

}  // namespace Engine::Platform
