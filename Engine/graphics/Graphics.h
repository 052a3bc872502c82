#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Engine/core/Singleton.h"
#include "Engine/graphics/Batch.h"
#include "Engine/graphics/GraphicsParameters.h"
#include "Engine/graphics/Texture.h"
#include "Engine/graphics/iGraphics.h"
#include "Engine/graphics/image/Image.h"
#include "Engine/platform/GraphicsDevice.h"

namespace Engine {

namespace Platform {
class iPlatform;
class iWindow;
}  // namespace Platform

/// How the logical screen lies on the display: in a window a unit is a pixel, in full screen the surface is fitted
/// into the display at 4:3, in its middle.
struct sScreenFit {
    Vector2 scale{1.0f};   ///< pixels per logical unit
    Vector2 border{0.0f};  ///< pixels left of and above the surface

    /// @param display  size of the display, pixels
    /// @param logical  size of the logical screen, units
    static sScreenFit make(UInt display_width, UInt display_height, UInt logical_width, UInt logical_height);
};

/// The renderer: packs the sprites of a frame into one batch, cut into chunks of one state each, and draws the chunks
/// in order at the frame's end. A unit is a chunk by itself.
///
/// Units are bodies in a flat picture: what is handed in later covers what was handed in before, as with sprites. Depth
/// decides only within a unit, and between units that follow each other at the same place of the screen, as a man and
/// the tool in his hand.
///
/// A frame is beginRender(), any number of render(), endRender(); the picture is shown by the next beginRender(). While
/// the device is lost the frame stays closed and render() does nothing.
///
/// Textures are made and released through getResource() and releaseResource(); they die with the renderer.
class cGraphics final : public iGraphics, public cSingleton<cGraphics> {
public:
    /// Longer lines are cut by textOut(): no display is wider.
    static constexpr std::size_t max_text_length = 512;

    /// Reads its parameters, puts the window into shape, creates the device and makes the resource manager, if there is
    /// one, load textures. Both arguments outlive the renderer.
    /// Throws what creating the device throws.
    cGraphics(Platform::iPlatform& platform, Platform::iWindow& window);
    /// Writes the parameters back to the settings first.
    ~cGraphics() override;

    void beginRender() override;
    void endRender() override;
    UInt getHeight() const override { return m_parameters.height; }
    UInt getWidth() const override { return m_parameters.width; }
    void setResetPending(Bool pending) override { m_reset_pending = pending; }
    Bool isResetPending() const override { return m_reset_pending; }
    /// Sprites of one cell that the buffers hold. A frame that needs more makes them grow.
    UInt getSpriteCapacity() const override { return m_batch.getCapacity(); }
    void resizeBuffers(UInt sprites) override { m_batch.resize(sprites); }
    /// Saves the picture drawn last in the writable directory, under "screenshots/" and the local date and time. Does
    /// nothing before the first frame and on a device without pixels.
    void screenshot() override;
    /// @param unit  must live until endRender()
    void render(const sUnit& unit, UInt render_type) override;
    // In sight of its callers, with the class being final: ten thousand calls a frame become none.
    void render(const sSprite& sprite, cTexture* texture, UInt render_type) override {
        if (!m_frame_open)
            return;
        m_batch.add(sprite, texture ? texture->getUse() : no_texture, render_type, m_placement);
    }
    void render(const sSprite& sprite, const String& texture, Bool overlay) override;
    /// One line at the top left of this frame's picture, further ones below it; nothing outside an open frame.
    void textOut(const WString& text) override;
    void getWindowRect(Float (&rect)[4]) const override;
    void showTriangles(Bool show) override { m_parameters.show_triangles = show; }
    Bool isFrameOpen() const override { return m_frame_open; }
    /// Throws as decodeImage() does.
    void getMask(const String& texture, VECTOR_VECTOR_BOOL& res) const override;
    void toLogical(const Vector2& from, Vector2& to) const override;
    void toScreen(const Vector2& from, Vector2& to) const override;

    /// A texture out of a picture's file, which is told in info. Throws what decodeImage() and the device throw.
    Platform::sTextureSurface getResource(const void* data, std::size_t size, const String& name, sImageInfo& info);
    /// An empty texture.
    Platform::sTextureSurface getResource(UInt width, UInt height);
    void releaseResource(UInt texture) { m_device->releaseTexture(texture); }
    /// The vertices of a mesh, or its indices. Throws what the device throws.
    UInt getResource(std::span<const std::uint8_t> vertices) { return m_device->createVertexBuffer(vertices); }
    UInt getResource(std::span<const std::uint16_t> indices) { return m_device->createIndexBuffer(indices); }
    void releaseBuffer(UInt buffer) { m_device->releaseBuffer(buffer); }

    void saveGraphicsParameters();
    void getGraphicsParameters();
    Bool isFullScreen() const { return m_parameters.fullscreen; }
    const sGraphicsParameters& getParameters() const { return m_parameters; }
    const sScreenFit& getFit() const { return m_fit; }  ///< of the whole display, used in full screen alone
    Platform::iGraphicsDevice& getDevice() { return *m_device; }

private:
    void prepareParameters();
    void setupDevice();
    void reset();

    Bool presentLast();
    void addOverlay();
    void addOverlayLine(std::string_view text);
    UInt countSceneTriangles() const;
    UInt getClearColor() const;
    void renderScene(std::span<const sChunk> chunks);
    void drawMask(const sChunk& chunk, Platform::sDrawState state);
    void drawChunk(const sChunk& chunk, const Platform::sDrawState& state);
    void drawUnit(const sUnit& unit, const Platform::sDrawState& state);
    std::span<const Matrix> makePalette(const sUnit& unit, Bool is_mask);
    const sLightConfig* findLights(const sUnit& unit) const;
    Platform::sDrawState makeState(const sChunk& chunk) const;
    String makeScreenshotName() const;

    Platform::iPlatform& m_platform;
    Platform::iWindow& m_window;
    std::unique_ptr<Platform::iGraphicsDevice> m_device;

    sGraphicsParameters m_parameters;
    UInt m_display_width = 0;   ///< pixels
    UInt m_display_height = 0;  ///< pixels
    sScreenFit m_fit;
    sPlacement m_placement;  ///< of this frame's sprites
    cBatch m_batch;
    std::vector<char> m_lines;  ///< texts of this frame, each ended by '\n'
    Platform::sTextureSurface m_font;
    std::vector<Matrix> m_palette;             ///< of the unit being drawn
    std::optional<Vector2> m_last_unit_place;  ///< of the unit drawn before it in this frame
    Int m_alpha_reference = 0;                 ///< stays from chunk to chunk where a render type does not say it

    Bool m_presented = true;  ///< nothing is drawn that is not shown yet
    Bool m_reset_pending = false;
    Bool m_frame_open = false;
};

}  // namespace Engine
