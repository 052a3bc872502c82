#include "Engine/graphics/Graphics.h"

#include <algorithm>
#include <cstdio>
#include <glm/gtc/matrix_transform.hpp>

#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Animation.h"
#include "Engine/graphics/Overlay.h"
#include "Engine/graphics/PictureFile.h"
#include "Engine/graphics/Shader.h"
#include "Engine/graphics/SystemFont.h"
#include "Engine/graphics/Texture.h"
#include "Engine/graphics/iMesh.h"
#include "Engine/platform/Platform.h"

namespace Engine {

using Platform::eBlend;
using Platform::eDeviceState;
using Platform::eFilter;
using Platform::eStencil;
using Platform::sDrawState;

namespace {

constexpr UInt lost_device_pause = 10;    ///< milliseconds, before a lost device is asked again
constexpr UInt failed_reset_pause = 100;  ///< milliseconds
constexpr Int mask_reference = 136;       ///< alpha up to this is no part of a mask
constexpr Int high_reference = 160;       ///< of renderAlpha160

UInt toUInt(Int value) {
    return static_cast<UInt>(std::max(value, 0));
}

/// A unit without a mesh has none.
UInt countTriangles(const iGraphics::sUnit& unit) {
    return unit.mesh ? unit.mesh->getTriangleCount() : 0;
}

void registerLoaders(cResourceManager& resources) {
    resources.registerLoader(
        eResourceType::texture, [](const String& name) { return std::make_unique<cTexture>(name); }, true);
    resources.registerLoader(
        eResourceType::mesh, [](const String& name) { return iMesh::create(name); }, true);
    resources.registerLoader(
        eResourceType::animation, [](const String& name) { return std::make_unique<cAnimation>(name); }, false);
    resources.registerLoader(
        eResourceType::shader, [](const String& name) { return std::make_unique<cShader>(name); }, true);
}

}  // namespace

sScreenFit sScreenFit::make(UInt display_width, UInt display_height, UInt logical_width, UInt logical_height) {
    const UInt width = std::min(display_width, static_cast<UInt>(std::uint64_t{display_height} * 4 / 3));
    const UInt height = std::min(display_height, static_cast<UInt>(std::uint64_t{display_width} * 3 / 4));
    return {.scale = {static_cast<Float>(width) / static_cast<Float>(logical_width),
                      static_cast<Float>(height) / static_cast<Float>(logical_height)},
            .border = {static_cast<Float>(display_width - width) * 0.5f,
                       static_cast<Float>(display_height - height) * 0.5f}};
}

cGraphics::cGraphics(Platform::iPlatform& platform, Platform::iWindow& window)
    : m_platform(platform), m_window(window) {
    ENGINE_MARK;
    prepareParameters();
    m_window.restore();
    m_device = m_platform.createGraphicsDevice(m_window);
    while (!m_device->reset(m_display_width, m_display_height))
        m_platform.sleep(failed_reset_pause);
    resizeBuffers(m_parameters.reserve_sprite_count);
    setupDevice();
    m_font = Overlay::createFontTexture(*m_device);
    if (cResourceManager* resources = cResourceManager::getInstance())
        registerLoaders(*resources);
}

cGraphics::~cGraphics() {
    saveGraphicsParameters();
}

void cGraphics::saveGraphicsParameters() {
    m_parameters.save();
}

void cGraphics::getGraphicsParameters() {
    m_parameters.read();
}

/// Reads the parameters, brings the window into their form and works out where the logical screen lies.
void cGraphics::prepareParameters() {
    ENGINE_MARK;
    getGraphicsParameters();
    const Platform::sRect display = m_window.getDisplayRect();
    const UInt width = toUInt(display.right - display.left);
    const UInt height = toUInt(display.bottom - display.top);
    m_fit = sScreenFit::make(width, height, getWidth(), getHeight());
    if (m_parameters.fullscreen) {
        m_window.setFullScreen();
        m_display_width = width;
        m_display_height = height;
        m_placement = {m_fit.scale, m_fit.border};
    } else {
        m_window.setWindowed(static_cast<Int>(getWidth()), static_cast<Int>(getHeight()));
        m_display_width = getWidth();
        m_display_height = getHeight();
        // Whole coordinates are the edges of pixels on our devices, so a sprite on whole coordinates covers exactly
        // its pixels. Where they were the pixels' centres, half a pixel had to be taken off here.
        m_placement = {};
    }
}

void cGraphics::setupDevice() {
    ENGINE_MARK;
    constexpr Float depth = 8000.0f;
    // z grows towards the viewer on both sides of it.
    const Matrix projection = glm::orthoLH(0.0f, static_cast<Float>(m_display_width),
                                           static_cast<Float>(m_display_height), 0.0f, -depth, depth);
    const Matrix placed = glm::translate(projection, Vector3(m_placement.offset, 0.0f));
    m_device->setProjection(projection, glm::scale(placed, Vector3(m_placement.scale, 1.0f)));
    m_alpha_reference = 0;
}

void cGraphics::reset() {
    ENGINE_MARK;
    for (;;) {
        prepareParameters();
        if (m_device->reset(m_display_width, m_display_height))
            break;
        m_platform.sleep(failed_reset_pause);
    }
    setupDevice();
    m_reset_pending = false;
    m_window.restore();
}

/// Shows the picture of the frame before. False while the device is lost.
Bool cGraphics::presentLast() {
    if (m_presented)
        return true;
    if (m_device->present() != eDeviceState::ready) {
        if (m_device->getState() != eDeviceState::notReset) {
            m_platform.sleep(lost_device_pause);
            return false;
        }
        reset();
    }
    m_presented = true;
    return true;
}

void cGraphics::beginRender() {
    ENGINE_MARK;
    if (!presentLast())
        return;
    if (m_reset_pending)
        reset();
    m_batch.clear();
    m_lines.clear();
    m_frame_open = true;
}

void cGraphics::render(const sUnit& unit, UInt render_type) {
    if (m_frame_open)
        m_batch.add(unit, render_type);
}

void cGraphics::render(const sSprite& sprite, const String& texture, Bool overlay) {
    ENGINE_MARK;
    const UInt render_type = overlay ? UInt{renderMultiply} : 0;
    if (texture.empty())
        return render(sprite, nullptr, render_type);
    iResource* resource = cResourceManager::getInstance()->getTexture(texture);
    render(sprite, static_cast<cTexture*>(resource), render_type);
    resource->release();
}

void cGraphics::endRender() {
    ENGINE_MARK;
    if (!m_frame_open)
        return;
    m_batch.close();
    const std::size_t scene_size = m_batch.getChunks().size();
    addOverlay();
    m_batch.close();

    m_device->writeBatch(m_batch.getVertices(), m_batch.getIndices());
    m_device->clear(getClearColor());
    m_device->beginScene();
    m_last_unit_place.reset();
    renderScene(m_batch.getChunks().first(scene_size));
    renderScene(m_batch.getChunks().subspan(scene_size));
    m_device->endScene();
    m_presented = false;
    m_frame_open = false;
}

UInt cGraphics::getClearColor() const {
    return m_parameters.show_triangles ? 0xFF000000 : toPackedColor(m_parameters.back_color);
}

sDrawState cGraphics::makeState(const sChunk& chunk) const {
    const UInt render_type = chunk.render_type;
    sDrawState state{.wireframe = m_parameters.show_triangles, .alpha_reference = m_alpha_reference};
    if (render_type & (renderMultiply | renderMultiplyBlend))
        state.blend = eBlend::multiply;
    if (render_type & renderLinear)
        state.magnify = state.minify = eFilter::linear;
    if (render_type & renderAnisotropic)
        state.magnify = state.minify = eFilter::anisotropic;
    if (m_parameters.fullscreen && !chunk.unit)  // smooths what is scaled up, whatever the render type chose
        state.magnify = (render_type & renderMultiply) ? eFilter::point : eFilter::anisotropic;
    return state;
}

void cGraphics::drawMask(const sChunk& chunk, sDrawState state) {
    state.blend = eBlend::keep;
    state.stencil = eStencil::write;
    state.alpha_reference = mask_reference;
    drawChunk(chunk, state);
}

void cGraphics::drawChunk(const sChunk& chunk, const sDrawState& state) {
    if (chunk.unit)
        drawUnit(*chunk.unit, state);
    else
        m_device->draw(state, {chunk.texture, chunk.first_index, chunk.triangles, chunk.first_vertex, chunk.vertices});
}

// Units ------------------------------------------------------------------------------------------------------------

void cGraphics::drawUnit(const sUnit& unit, const sDrawState& state) {
    if (countTriangles(unit) == 0)
        return;
    const Bool is_mask = state.stencil == eStencil::write;
    const Vector2 place(unit.world[3]);
    m_device->drawUnit(state, {.vertex_buffer = unit.mesh->getVertexBuffer(),
                               .index_buffer = unit.mesh->getIndexBuffer(),
                               .format = unit.mesh->getFormat(),
                               .triangles = unit.mesh->getTriangleCount(),
                               .texture = unit.texture ? unit.texture->getHandle() : 0,
                               .world = makePalette(unit, is_mask),
                               .material = &unit.material,
                               .lights = findLights(unit),
                               .same_body = m_last_unit_place == place});
    m_last_unit_place = place;
}

/// The unit's matrices from the mesh to the logical screen: one for each bone of a mesh that is moved, else one. The
/// mask is that of the new pose alone.
std::span<const Matrix> cGraphics::makePalette(const sUnit& unit, Bool is_mask) {
    const std::vector<Matrix>* bind = unit.mesh->getBoneMatrices();
    if (!bind || !unit.animation) {
        m_palette.assign(1, unit.world);
        return m_palette;
    }
    unit.animation->setTime(unit.time, bind);
    const std::vector<Matrix>& pose = unit.animation->getMatrices();
    const std::vector<Matrix>& saved = unit.saved_matrices;
    m_palette.assign(bind->size(), unit.world);
    for (std::size_t i = 0; i < std::min(m_palette.size(), pose.size()); ++i) {
        if (!is_mask && unit.blend > 0.0f && i < saved.size())
            m_palette[i] = unit.world * (saved[i] * unit.blend + pose[i] * (1.0f - unit.blend));
        else
            m_palette[i] = unit.world * pose[i];
    }
    return m_palette;
}

const sLightConfig* cGraphics::findLights(const sUnit& unit) const {
    const Bool exists = unit.light_table < m_parameters.light_configs.size();
    return unit.lighting && exists ? &m_parameters.light_configs[unit.light_table] : nullptr;
}

/// A chunk that is masked but writes no mask is drawn with the alpha reference of the chunk before it: only the other
/// kinds set it.
void cGraphics::renderScene(std::span<const sChunk> chunks) {
    for (const sChunk& chunk : chunks) {
        const UInt type = chunk.render_type;
        if (type & renderMaskWriter)
            m_alpha_reference = 0;
        else if (!(type & renderMasked))
            m_alpha_reference = (type & renderAlpha160) ? high_reference : 0;
        if (chunk.triangles == 0 && !chunk.unit)
            continue;

        sDrawState state = makeState(chunk);
        if (type & renderMaskWriter)
            drawMask(chunk, state);
        if (type & renderMasked)
            state.stencil = eStencil::test;
        if (type & renderOpaque) {
            state.blend = eBlend::none;
            state.alpha_reference = sDrawState::no_alpha_test;
        }
        drawChunk(chunk, state);
    }
}

/// Triangles that the scene draws: a mask is drawn as well as what writes it.
UInt cGraphics::countSceneTriangles() const {
    UInt res = 0;
    for (const sChunk& chunk : m_batch.getChunks()) {
        const UInt triangles = chunk.unit ? countTriangles(*chunk.unit) : chunk.triangles;
        res += triangles * ((chunk.render_type & renderMaskWriter) ? 2 : 1);
    }
    return res;
}

void cGraphics::textOut(const WString& text) {
    if (!m_frame_open)
        return;
    String line;
    for (const char16_t unit : text.substr(0, max_text_length))
        line += unit < 0x80 ? static_cast<char>(unit) : '?';
    addOverlayLine(line);
}

void cGraphics::addOverlayLine(std::string_view text) {
    m_lines.insert(m_lines.end(), text.begin(), text.end());
    m_lines.push_back('\n');
}

/// The bands of a fitted screen, and the texts of this frame, of which the renderer's own is the last.
void cGraphics::addOverlay() {
    char text[max_text_length];
    std::size_t length = 0;
    const auto add = [&](const char* format, auto... values) {
        const int count = std::snprintf(text + length, sizeof(text) - length, format, values...);
        length = std::min(length + toUInt(count), sizeof(text) - 1);
    };
    if (m_parameters.show_fps && cTimer::getInstance())
        add("FPS: %.1f ", static_cast<Double>(cTimer::getInstance()->getFps()));
    if (m_parameters.show_triangles)
        add("Triangles: %u ", countSceneTriangles());
    if (m_parameters.show_cursor_pos) {
        Float rect[4];
        getWindowRect(rect);
        Vector2 cursor = m_platform.getCursorPos() - Vector2(rect[0], rect[1]);
        toLogical(cursor, cursor);
        add("X: %d Y: %d ", static_cast<Int>(cursor.x), static_cast<Int>(cursor.y));
    }
    if (length > 0)
        addOverlayLine({text, length});

    if (m_parameters.fullscreen)
        Overlay::addBands(m_batch, m_fit.border, {m_display_width, m_display_height});
    Vector2 place(0.0f);
    const UInt color = toPackedColor(m_parameters.sys_font_color);
    for (auto begin = m_lines.begin(); begin != m_lines.end();) {
        const auto end = std::find(begin, m_lines.end(), '\n');
        Overlay::addText(m_batch, m_font, {begin, end}, place, color);
        place.y += static_cast<Float>(SystemFont::glyph_height);
        begin = end + 1;
    }
}

void cGraphics::getWindowRect(Float (&rect)[4]) const {
    const Platform::sRect area = m_parameters.fullscreen ? m_window.getDisplayRect() : m_window.getClientRect();
    const Int sides[4] = {area.left, area.top, area.right, area.bottom};
    std::copy(std::begin(sides), std::end(sides), std::begin(rect));
}

void cGraphics::toLogical(const Vector2& from, Vector2& to) const {
    to = m_parameters.fullscreen ? (from - m_fit.border) / m_fit.scale : from;
}

void cGraphics::toScreen(const Vector2& from, Vector2& to) const {
    Float rect[4];
    getWindowRect(rect);
    to = from + Vector2(rect[0], rect[1]);
    if (m_parameters.fullscreen)
        to = to * m_fit.scale + m_fit.border;
}

void cGraphics::getMask(const String& texture, VECTOR_VECTOR_BOOL& res) const {
    ENGINE_MARK;
    const std::vector<std::uint8_t> file = readPictureFile(texture);
    const sImage image = decodeImage(file.data(), file.size(), texture);
    res.assign(image.width, std::vector<bool>(image.height));
    const std::uint8_t* alpha = image.pixels.data() + 3;
    for (UInt y = 0; y < image.height; ++y)
        for (UInt x = 0; x < image.width; ++x, alpha += 4)
            res[x][y] = static_cast<Float>(*alpha) / 255.0f > 0.001f;
}

Platform::sTextureSurface cGraphics::getResource(const void* data, std::size_t size, const String& name,
                                                 sImageInfo& info) {
    ENGINE_MARK;
    if (!m_device->needsPixels()) {
        info = readImageInfo(data, size, name);
        return m_device->createTexture(info.width, info.height, nullptr);
    }
    const sImage image = decodeImage(data, size, name);
    info = {image.width, image.height};
    return m_device->createTexture(image.width, image.height, image.pixels.data());
}

Platform::sTextureSurface cGraphics::getResource(UInt width, UInt height) {
    ENGINE_MARK;
    return m_device->createTexture(width, height, nullptr);
}

String cGraphics::makeScreenshotName() const {
    const Platform::sLocalTime time = m_platform.getLocalTime();
    char name[64];
    std::snprintf(name, sizeof(name), "screenshots/%04d-%02d-%02d %02d-%02d-%02d", time.year, time.month, time.day,
                  time.hour, time.minute, time.second);
    String res = String(name) + ".png";
    for (int i = 2; cFileManager::getInstance()->isCommonExist(res); ++i)
        res = String(name) + " (" + std::to_string(i) + ").png";
    return res;
}

void cGraphics::screenshot() {
    ENGINE_MARK;
    sImage image;
    if (m_presented || !m_device->readPicture(image))
        return;
    const String name = makeScreenshotName();
    const std::vector<std::uint8_t> bytes = encodePng(image, name);
    const std::unique_ptr<iFile> file = cFileManager::getInstance()->create(name, true);
    if (file->write(bytes.data(), static_cast<ULong>(bytes.size())) != bytes.size())
        throw String("cGraphics::screenshot(): \"" + name + "\" can't be written");
    file->close();
}

}  // namespace Engine
