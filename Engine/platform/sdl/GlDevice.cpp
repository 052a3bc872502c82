#include "Engine/platform/sdl/GlDevice.h"

#include <SDL.h>
#include <epoxy/gl.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

#include "Engine/core/CallStack.h"
#include "Engine/graphics/image/Image.h"

namespace Engine::Platform {

namespace {

static_assert(sizeof(UInt) == sizeof(GLuint));

SDL_GLContext createContext(SDL_Window* window, int profile, int major, int minor) {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, profile);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, major);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, minor);
    return SDL_GL_CreateContext(window);
}

SDL_GLContext createAnyContext(SDL_Window* window) {
    if (SDL_GLContext context = createContext(window, SDL_GL_CONTEXT_PROFILE_CORE, 3, 3))
        return context;
    if (SDL_GLContext context = createContext(window, SDL_GL_CONTEXT_PROFILE_ES, 3, 0))
        return context;
    throw String("No OpenGL 3.3 and no OpenGL ES 3.0: " + std::string(SDL_GetError()));
}

const void* toOffset(std::size_t bytes) {
    return reinterpret_cast<const void*>(bytes);
}

/// Gives the buffer new contents. The old memory is left to the draws that may still read it.
void stream(GLenum target, const void* data, std::size_t size) {
    glBufferData(target, static_cast<GLsizeiptr>(size), data, GL_STREAM_DRAW);
}

void enable(GLenum what, Bool on) {
    on ? glEnable(what) : glDisable(what);
}

/// One that runs on the processor reads every texture of a choice for every pixel, whichever is chosen, and vertices
/// are dear there: a crowd of two dozen men is the largest that has soft edges.
constexpr UInt most_soft_triangles = 16000;

Bool isSoftwareRenderer() {
    const std::string name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    return std::ranges::any_of(std::array{"llvmpipe", "softpipe", "SwiftShader", "Software"},
                               [&name](const char* part) { return name.find(part) != std::string::npos; });
}

Bool canDrawWithBase() {
    return epoxy_is_desktop_gl() || epoxy_gl_version() >= 32;
}

}  // namespace

void cGlDevice::sContextEnd::operator()(void* context) const {
    SDL_GL_DeleteContext(context);
}

cGlDevice::cGlDevice(SDL_Window* window) : m_window(window), m_context(createAnyContext(window)) {
    ENGINE_MARK;
    SDL_GL_SetSwapInterval(0);  // the frame does no waiting of its own
    GLint size = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &size);
    m_max_texture_size = static_cast<UInt>(size);
    m_single.emplace(1u);
    m_multi.emplace(sDrawGroup::max_textures);
    const Bool in_software = isSoftwareRenderer();
    if (in_software)
        m_draws = cDrawGroups(1);
    m_units.emplace(in_software ? most_soft_triangles : std::numeric_limits<UInt>::max());
    createBuffers();
    const std::uint8_t white[] = {255, 255, 255, 255};
    m_white = createTexture(1, 1, white).handle;
    glDisable(GL_CULL_FACE);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_DITHER);
}

cGlDevice::~cGlDevice() {
    for (const UInt texture : m_textures)
        glDeleteTextures(1, &texture);
    for (const auto& row : m_samplers)
        glDeleteSamplers(3, row);
    const GLuint buffers[] = {m_vertex_buffer, m_slot_buffer, m_index_buffer};
    glDeleteBuffers(3, buffers);
    glDeleteVertexArrays(1, &m_vertex_array);
    m_single.reset();
    m_multi.reset();
    m_units.reset();
}

String cGlDevice::getDescription() const {
    const auto get = [](GLenum name) { return std::string(reinterpret_cast<const char*>(glGetString(name))); };
    return get(GL_RENDERER) + ", " + get(GL_VERSION);
}

void cGlDevice::createBuffers() {
    ENGINE_MARK;
    glGenVertexArrays(1, &m_vertex_array);
    glBindVertexArray(m_vertex_array);
    glGenBuffers(1, &m_vertex_buffer);
    glGenBuffers(1, &m_slot_buffer);
    glGenBuffers(1, &m_index_buffer);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_index_buffer);
    setVertexFormat(0);
    for (const GLuint place : {attributePosition, attributeColor, attributeUv, attributeSlot})
        glEnableVertexAttribArray(place);
}

/// Vertex 0 of a draw is then the batch's first_vertex.
void cGlDevice::setVertexFormat(UInt first_vertex) {
    constexpr GLsizei stride = sizeof(sVertex);
    const std::size_t start = std::size_t{first_vertex} * stride;
    glBindBuffer(GL_ARRAY_BUFFER, m_vertex_buffer);
    glVertexAttribPointer(attributePosition, 3, GL_FLOAT, GL_FALSE, stride, toOffset(start + offsetof(sVertex, x)));
    glVertexAttribPointer(attributeColor, 4, GL_UNSIGNED_BYTE, GL_TRUE, stride,
                          toOffset(start + offsetof(sVertex, color)));
    glVertexAttribPointer(attributeUv, 2, GL_FLOAT, GL_FALSE, stride, toOffset(start + offsetof(sVertex, u)));
    glBindBuffer(GL_ARRAY_BUFFER, m_slot_buffer);
    glVertexAttribIPointer(attributeSlot, 1, GL_UNSIGNED_INT, 0, toOffset(first_vertex * sizeof(UInt)));
}

Bool cGlDevice::reset(UInt width, UInt height) {
    ENGINE_MARK;
    m_width = width;
    m_height = height;
    glViewport(0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height));
    return width > 0 && height > 0;
}

eDeviceState cGlDevice::present() {
    SDL_GL_SwapWindow(m_window);
    return eDeviceState::ready;
}

sTextureSurface cGlDevice::createTexture(UInt width, UInt height, const std::uint8_t* pixels) {
    ENGINE_MARK;
    const String failure =
        "Texture of " + std::to_string(width) + " x " + std::to_string(height) + " can't be created.";
    if (width == 0 || height == 0 || width > m_max_texture_size || height > m_max_texture_size)
        throw String(failure + " The display takes up to " + std::to_string(m_max_texture_size) + ".");
    while (glGetError() != GL_NO_ERROR) {
    }
    GLuint handle = 0;
    glGenTextures(1, &handle);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, handle);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, static_cast<GLsizei>(width), static_cast<GLsizei>(height), 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, pixels);
    if (glGetError() != GL_NO_ERROR) {
        glDeleteTextures(1, &handle);
        throw String(failure + " The display is out of memory.");
    }
    m_textures.insert(handle);
    return {handle, width, height};
}

void cGlDevice::releaseTexture(UInt handle) {
    if (m_textures.erase(handle) > 0)
        glDeleteTextures(1, &handle);
}

void cGlDevice::writeBatch(std::span<const sVertex> vertices, std::span<const std::uint16_t> indices) {
    glBindBuffer(GL_ARRAY_BUFFER, m_vertex_buffer);
    stream(GL_ARRAY_BUFFER, vertices.data(), vertices.size_bytes());
    stream(GL_ELEMENT_ARRAY_BUFFER, indices.data(), indices.size_bytes());
    m_slots.resize(std::max(m_slots.size(), vertices.size()));
}

void cGlDevice::clear(UInt color) {
    const auto part = [color](int shift) { return static_cast<Float>(color >> shift & 0xFF) / 255.0f; };
    glClearColor(part(16), part(8), part(0), part(24));
    glClearStencil(0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
}

void cGlDevice::beginScene() {
    m_draws.clear();
    m_units->clear();
}

void cGlDevice::endScene() {
    ENGINE_MARK;
    if (m_draws.fillSlots(m_slots)) {
        glBindBuffer(GL_ARRAY_BUFFER, m_slot_buffer);
        stream(GL_ARRAY_BUFFER, m_slots.data(), m_slots.size() * sizeof(UInt));
    }
    m_units->send();
    for (const sDrawGroup& group : m_draws.getGroups())
        drawGroup(group);
    switchTo2D();
}

void cGlDevice::switchTo2D() {
    if (!m_in_3d)
        return;
    m_in_3d = false;
    m_units->end();
    glBindVertexArray(m_vertex_array);
}

void cGlDevice::switchTo3D() {
    if (m_in_3d)
        return;
    m_in_3d = true;
    m_units->begin();
}

void cGlDevice::drawGroup(const sDrawGroup& group) {
    applyState(group.state);
    bindTextures(group);
    if (group.unit == sDrawGroup::no_unit) {
        switchTo2D();
        drawSprites(group);
    } else {
        switchTo3D();
        const Float pixel = 2.0f / (m_unit_projection[0][0] * static_cast<Float>(m_width));
        m_units->draw(group.unit, group.state, m_unit_projection, pixel);
    }
}

void cGlDevice::drawSprites(const sDrawGroup& group) {
    const Bool multi = group.texture_count > 1;
    (multi ? *m_multi : *m_single).use(m_projection, group.state.alpha_reference);
    if (canDrawWithBase())
        drawRuns(m_draws.getRuns(group));
    else
        drawRunsOneByOne(m_draws.getRuns(group));
}

void cGlDevice::applyBlend(eBlend blend) {
    enable(GL_BLEND, blend != eBlend::none);
    switch (blend) {
        case eBlend::none:
            return;
        case eBlend::alpha:
            return glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        case eBlend::multiply:
            return glBlendFunc(GL_DST_COLOR, GL_SRC_ALPHA);
        case eBlend::keep:
            return glBlendFunc(GL_ZERO, GL_ONE);
    }
}

void cGlDevice::applyStencil(eStencil stencil) {
    enable(GL_STENCIL_TEST, stencil != eStencil::off);
    if (stencil == eStencil::off)
        return;
    const Bool writes = stencil == eStencil::write;
    glStencilFunc(writes ? GL_ALWAYS : GL_EQUAL, 1, 0xFF);
    glStencilOp(GL_KEEP, GL_KEEP, writes ? GL_REPLACE : GL_KEEP);
}

void cGlDevice::applyState(const sDrawState& state) {
    if (!m_state || m_state->blend != state.blend)
        applyBlend(state.blend);
    if (!m_state || m_state->stencil != state.stencil)
        applyStencil(state.stencil);
    if ((!m_state || m_state->wireframe != state.wireframe) && epoxy_is_desktop_gl())
        glPolygonMode(GL_FRONT_AND_BACK, state.wireframe ? GL_LINE : GL_FILL);
    m_state = state;
}

GLuint cGlDevice::getSampler(eFilter magnify, eFilter minify) {
    GLuint& sampler = m_samplers[static_cast<int>(magnify)][static_cast<int>(minify)];
    if (sampler != 0)
        return sampler;
    const auto toGl = [](eFilter filter) { return filter == eFilter::point ? GL_NEAREST : GL_LINEAR; };
    glGenSamplers(1, &sampler);
    glSamplerParameteri(sampler, GL_TEXTURE_MAG_FILTER, toGl(magnify));
    glSamplerParameteri(sampler, GL_TEXTURE_MIN_FILTER, toGl(minify));
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glSamplerParameteri(sampler, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    // It concerns pictures that are shrunk more along one side than along the other.
    if (minify == eFilter::anisotropic && epoxy_has_gl_extension("GL_EXT_texture_filter_anisotropic")) {
        Float most = 1.0f;
        glGetFloatv(GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT, &most);
        glSamplerParameterf(sampler, GL_TEXTURE_MAX_ANISOTROPY_EXT, most);
    }
    return sampler;
}

void cGlDevice::bindTextures(const sDrawGroup& group) {
    const GLuint sampler = getSampler(group.state.magnify, group.state.minify);
    for (UInt i = 0; i < group.texture_count; ++i) {
        glActiveTexture(GL_TEXTURE0 + i);
        glBindTexture(GL_TEXTURE_2D, group.textures[i] != 0 ? group.textures[i] : m_white);
        glBindSampler(i, sampler);
    }
}

void cGlDevice::drawRuns(std::span<const sDrawRun> runs) {
    m_counts.clear();
    m_offsets.clear();
    m_bases.clear();
    for (const sDrawRun& run : runs) {
        m_counts.push_back(static_cast<GLsizei>(run.triangles * 3));
        m_offsets.push_back(toOffset(run.first_index * sizeof(std::uint16_t)));
        m_bases.push_back(static_cast<GLint>(run.first_vertex));
    }
    if (runs.size() > 1 && epoxy_is_desktop_gl()) {
        glMultiDrawElementsBaseVertex(GL_TRIANGLES, m_counts.data(), GL_UNSIGNED_SHORT, m_offsets.data(),
                                      static_cast<GLsizei>(runs.size()), m_bases.data());
        return;
    }
    for (std::size_t i = 0; i < runs.size(); ++i)
        glDrawElementsBaseVertex(GL_TRIANGLES, m_counts[i], GL_UNSIGNED_SHORT, m_offsets[i], m_bases[i]);
}

void cGlDevice::drawRunsOneByOne(std::span<const sDrawRun> runs) {
    for (const sDrawRun& run : runs) {
        setVertexFormat(run.first_vertex);
        glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(run.triangles * 3), GL_UNSIGNED_SHORT,
                       toOffset(run.first_index * sizeof(std::uint16_t)));
    }
}

Bool cGlDevice::readPicture(sImage& res) {
    ENGINE_MARK;
    res = {m_width, m_height, {}};
    res.pixels.resize(std::size_t{m_width} * m_height * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, static_cast<GLsizei>(m_width), static_cast<GLsizei>(m_height), GL_RGBA, GL_UNSIGNED_BYTE,
                 res.pixels.data());
    const std::size_t row = std::size_t{m_width} * 4;
    for (UInt y = 0; y < m_height / 2; ++y)  // its rows come from the bottom
        std::swap_ranges(&res.pixels[y * row], &res.pixels[y * row] + row, &res.pixels[(m_height - 1 - y) * row]);
    for (std::size_t i = 3; i < res.pixels.size(); i += 4)
        res.pixels[i] = 255;  // what lies on the screen lets nothing through
    return true;
}

void setGlAttributes() {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, 8);
}

std::unique_ptr<iGraphicsDevice> createGlDevice(SDL_Window* window) {
    return std::make_unique<cGlDevice>(window);
}

}  // namespace Engine::Platform
