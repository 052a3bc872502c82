#pragma once

#include <memory>
#include <optional>
#include <set>

#include "Engine/platform/GraphicsDevice.h"
#include "Engine/platform/sdl/DrawGroups.h"
#include "Engine/platform/sdl/GlProgram.h"
#include "Engine/platform/sdl/GlUnits.h"

struct SDL_Window;

namespace Engine::Platform {

/// A display drawn by OpenGL 3.3 core, or by OpenGL ES 3.0 where that is all there is.
///
/// Draws are gathered until endScene() and sent in groups, so that a change of texture alone costs no call.
class cGlDevice : public iGraphicsDevice {
public:
    /// @param window  made with SDL_WINDOW_OPENGL after setGlAttributes(); outlives the device
    /// Throws "No OpenGL 3.3 and no OpenGL ES 3.0: " and SDL's message.
    explicit cGlDevice(SDL_Window* window);
    ~cGlDevice() override;
    cGlDevice(const cGlDevice&) = delete;
    cGlDevice& operator=(const cGlDevice&) = delete;

    String getDescription() const override;
    Bool reset(UInt width, UInt height) override;
    eDeviceState present() override;
    eDeviceState getState() override { return eDeviceState::ready; }
    Bool needsPixels() const override { return true; }
    UInt getMaxTextureSize() const override { return m_max_texture_size; }
    sTextureSurface createTexture(UInt width, UInt height, const std::uint8_t* pixels) override;
    void releaseTexture(UInt handle) override;
    UInt createVertexBuffer(std::span<const std::uint8_t> vertices) override {
        return m_units->createBuffer(vertices.data(), vertices.size_bytes());
    }
    UInt createIndexBuffer(std::span<const std::uint16_t> indices) override {
        return m_units->createBuffer(indices.data(), indices.size_bytes());
    }
    void releaseBuffer(UInt handle) override { m_units->releaseBuffer(handle); }
    void setProjection(const Matrix& sprites, const Matrix& units) override {
        m_projection = sprites;
        m_unit_projection = units;
    }
    void writeBatch(std::span<const sVertex> vertices, std::span<const std::uint16_t> indices) override;
    void clear(UInt color) override;
    void beginScene() override;
    void draw(const sDrawState& state, const sDrawRun& run) override { m_draws.add(state, run); }
    void drawUnit(const sDrawState& state, const sUnitDraw& unit) override {
        m_draws.addUnit(state, unit.texture, m_units->add(unit));
    }
    void endScene() override;
    Bool readPicture(sImage& res) override;

private:
    struct sContextEnd {
        void operator()(void* context) const;
    };

    void createBuffers();
    void setVertexFormat(UInt first_vertex);
    void applyState(const sDrawState& state);
    void applyBlend(eBlend blend);
    void applyStencil(eStencil stencil);
    void bindTextures(const sDrawGroup& group);
    GLuint getSampler(eFilter magnify, eFilter minify);
    void drawGroup(const sDrawGroup& group);
    void drawSprites(const sDrawGroup& group);
    void switchTo2D();
    void switchTo3D();
    void drawRuns(std::span<const sDrawRun> runs);
    void drawRunsOneByOne(std::span<const sDrawRun> runs);

    SDL_Window* m_window;
    std::unique_ptr<void, sContextEnd> m_context;  ///< first made, last to go
    UInt m_max_texture_size = 0;
    UInt m_width = 0;                ///< of the picture, pixels
    UInt m_height = 0;               ///< of the picture, pixels
    Matrix m_projection{1.0f};       ///< of sprites
    Matrix m_unit_projection{1.0f};  ///< of units

    std::optional<cGlProgram> m_single;  ///< draws groups of one texture
    std::optional<cGlProgram> m_multi;   ///< draws groups of several
    std::optional<cGlUnits> m_units;
    Bool m_in_3d = false;  ///< units are drawn now
    GLuint m_vertex_array = 0;
    GLuint m_vertex_buffer = 0;
    GLuint m_slot_buffer = 0;
    GLuint m_index_buffer = 0;
    GLuint m_white = 0;            ///< stands for no texture
    GLuint m_samplers[3][3] = {};  ///< by magnify and minify filter; 0 until used
    std::set<UInt> m_textures;

    cDrawGroups m_draws;
    std::vector<UInt> m_slots;  ///< one for each vertex of the batch
    std::vector<GLsizei> m_counts;
    std::vector<const void*> m_offsets;
    std::vector<GLint> m_bases;
    std::optional<sDrawState> m_state;  ///< what the context is set to
};

/// Asks SDL for the frame buffer that the device needs. To be called before the window is made.
void setGlAttributes();

std::unique_ptr<iGraphicsDevice> createGlDevice(SDL_Window* window);

}  // namespace Engine::Platform
