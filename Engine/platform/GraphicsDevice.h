#pragma once

#include <cstdint>
#include <span>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {
struct sImage;
struct sLightConfig;
struct sMaterial;
}  // namespace Engine

namespace Engine::Platform {

/// One vertex of the batch, as it lies in the device's buffer: 24 bytes.
struct sVertex {
    Float x = 0.0f;
    Float y = 0.0f;
    Float z = 0.0f;
    UInt color = 0xFFFFFFFF;  ///< ARGB
    Float u = 0.0f;           ///< 0 to 1 from left to right of the surface
    Float v = 0.0f;           ///< 0 to 1 from top to bottom
};
static_assert(sizeof(sVertex) == 24);

/// How a drawn colour (source) meets the picture (destination).
enum class eBlend : std::uint8_t {
    none,      ///< source
    alpha,     ///< source x source alpha + destination x (1 - source alpha)
    multiply,  ///< source x destination + destination x source alpha
    keep,      ///< destination: nothing but the stencil changes
};

enum class eFilter : std::uint8_t { point, linear, anisotropic };

/// The stencil holds one bit: 0 after clear(), 1 where a mask was drawn.
enum class eStencil : std::uint8_t {
    off,
    write,  ///< sets the bit where a pixel passes the alpha test
    test,   ///< draws only where the bit is set
};

/// All that one draw depends on besides its texture. Texture and vertex colour are multiplied; addresses are clamped;
/// only the surface's own size is sampled, there are no smaller copies.
struct sDrawState {
    static constexpr Int no_alpha_test = -1;

    eBlend blend = eBlend::alpha;
    eStencil stencil = eStencil::off;
    eFilter magnify = eFilter::point;
    eFilter minify = eFilter::point;
    Bool wireframe = false;   ///< edges of the triangles alone, where the device can do so
    Int alpha_reference = 0;  ///< pixels with alpha x 255 <= this are dropped; no_alpha_test drops none

    friend Bool operator==(const sDrawState&, const sDrawState&) = default;
};

/// One run of triangles out of the batch. Its indices count from first_vertex.
struct sDrawRun {
    UInt texture = 0;  ///< handle; 0 draws with the vertex colours alone
    UInt first_index = 0;
    UInt triangles = 0;
    UInt first_vertex = 0;
    UInt vertices = 0;
};

/// One mesh, drawn as it is or moved by its bones.
///
/// Depth counts within a body alone, nearer to the viewer being the larger z: a unit covers all units before it that
/// are not of its own body, wherever they stand, and sprites take no part. Of a face only the side is seen from which
/// its corners go round clockwise. A unit that writes the mask marks all its pixels and leaves depth as it is.
struct sUnitDraw {
    UInt vertex_buffer = 0;
    UInt index_buffer = 0;
    UInt format = 0;  ///< of the vertices, one of mesh_formats
    UInt triangles = 0;
    UInt texture = 0;  ///< handle; 0 draws with the material alone
    /// From the mesh to the logical screen: one matrix, or one for each bone of a mesh with bones. Their last rows
    /// count as 0, 0, 0, 1.
    std::span<const Matrix> world;
    const sMaterial* material = nullptr;
    const sLightConfig* lights = nullptr;  ///< Engine/graphics/Lighting.h tells what they do; null: lighting off
    Bool same_body = false;                ///< as the unit before it
};

/// A surface made by the device. Its size is the picture's own unless the device had to round it up.
struct sTextureSurface {
    UInt handle = 0;
    UInt width = 0;   ///< texels
    UInt height = 0;  ///< texels
};

enum class eDeviceState {
    ready,
    lost,      ///< nothing can be drawn now; ask again later
    notReset,  ///< can be drawn on again after reset()
};

/// What the renderer asks of the display below it: textures, meshes, one batch of vertices and indices a frame, and
/// runs of it and meshes drawn with a state.
///
/// A frame is writeBatch(), clear(), beginScene(), any number of draw() and drawUnit(), endScene(); present() shows it.
/// Draws appear in the order in which they were asked for, though a device may hold them back until endScene() to send
/// fewer, larger ones. Handles stay valid over reset(). Failures throw a String that says which operation failed.
class iGraphicsDevice {
public:
    virtual ~iGraphicsDevice() = default;

    virtual String getDescription() const = 0;  ///< of the adapter and its driver

    /// Sets the size of the picture (pixels) after the window has taken on its new form. False if the device can't do
    /// so now; the caller waits a little and asks again.
    virtual Bool reset(UInt width, UInt height) = 0;
    /// Shows the picture drawn last. Anything but ready: it was not shown.
    virtual eDeviceState present() = 0;
    virtual eDeviceState getState() = 0;

    /// False where pictures are only counted: textures may then be made without pixels, so nothing need be decoded.
    virtual Bool needsPixels() const = 0;
    virtual UInt getMaxTextureSize() const = 0;  ///< texels along either side
    /// @param pixels  rows from the top, 4 bytes a texel: red, green, blue, alpha; null leaves them undefined
    /// Throws "Texture of <width> x <height> can't be created." and the reason.
    virtual sTextureSurface createTexture(UInt width, UInt height, const std::uint8_t* pixels) = 0;
    virtual void releaseTexture(UInt handle) = 0;  ///< 0 does nothing

    /// Vertices of meshes, in one of mesh_formats, and their indices. Throws "A buffer of <size> bytes can't be
    /// created."
    virtual UInt createVertexBuffer(std::span<const std::uint8_t> vertices) = 0;
    virtual UInt createIndexBuffer(std::span<const std::uint16_t> indices) = 0;
    virtual void releaseBuffer(UInt handle) = 0;  ///< of either kind; 0 does nothing

    /// projection * position is the place in -1 to 1, y up and z towards the viewer. Sprites lie on the display, units
    /// on the logical screen.
    virtual void setProjection(const Matrix& sprites, const Matrix& units) = 0;

    /// The vertices and indices of this frame; copied before it returns.
    virtual void writeBatch(std::span<const sVertex> vertices, std::span<const std::uint16_t> indices) = 0;
    /// @param color  ARGB; depth goes to the far end and the stencil to 0
    virtual void clear(UInt color) = 0;
    virtual void beginScene() = 0;
    virtual void draw(const sDrawState& state, const sDrawRun& run) = 0;
    /// What the unit points to is copied before it returns.
    virtual void drawUnit(const sDrawState& state, const sUnitDraw& unit) = 0;
    virtual void endScene() = 0;

    /// The picture drawn last, between endScene() and present(). False where there are no pixels.
    virtual Bool readPicture(sImage& res) = 0;
};

}  // namespace Engine::Platform
