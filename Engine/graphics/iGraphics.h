#pragma once

#include <vector>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"
#include "Engine/graphics/Lighting.h"

namespace Engine {

class cTexture;
class cShader;
class iMesh;
class cAnimation;

/// Hit mask of a picture: one vector per column, in it one bit per row, true where the picture can be seen.
using VECTOR_VECTOR_BOOL = std::vector<std::vector<bool>>;

/// Bits of a control's render type.
enum eRenderType : UInt {
    renderMultiply = 0x001,       ///< destination colour x source alpha; in full screen also the point magnify filter
    renderOpaque = 0x002,         ///< no blending and no alpha test
    renderMaskWriter = 0x004,     ///< writes the stencil first
    renderMasked = 0x008,         ///< draws only where the stencil holds the mask
    renderLinear = 0x020,         ///< linear filter
    renderMultiplyBlend = 0x040,  ///< as renderMultiply for the blend factors alone
    renderAnisotropic = 0x080,    ///< anisotropic filter
    renderAlpha160 = 0x100,       ///< alpha reference 160 instead of 0
};

/// The renderer as the rest of the program sees it. Everything drawn in a frame is handed in between beginRender()
/// and endRender(), in drawing order; outside an open frame render() does nothing.
class iGraphics {
public:
    struct sCorner {
        Float x = 0.0f;  ///< logical units
        Float y = 0.0f;
        UInt color = 0xFFFFFFFF;  ///< ARGB

        friend Bool operator==(const sCorner&, const sCorner&) = default;
    };

    /// One textured quad of any four-sided shape.
    struct sSprite {
        sCorner corners[4];         ///< top left, top right, bottom left, bottom right of the texture rectangle
        UInt tesselation = 1;       ///< cells per side: (n + 1)^2 vertices, 2 n^2 triangles
        cShader* shader = nullptr;  ///< parts sprites into chunks; it is not run (Shader.h)
        Float u0 = 0.0f;
        Float v0 = 0.0f;
        Float u1 = 1.0f;
        Float v1 = 1.0f;
        const std::vector<glm::vec4>* constants = nullptr;  ///< of the shader; outlives the frame
    };

    /// One mesh, still or moved by an animation.
    struct sUnit {
        iMesh* mesh = nullptr;
        cAnimation* animation = nullptr;
        cTexture* texture = nullptr;
        Float time = 0.0f;   ///< of the animation, seconds
        Matrix world{1.0f};  ///< from the mesh to the logical screen: x right, y down, z towards the viewer
        sMaterial material{};
        Bool lighting = false;
        UInt light_table = 0;  ///< configuration of the constants; one that is not there leaves the unit unlit
        std::vector<Matrix> saved_matrices{};  ///< the pose to blend from
        Float blend = 0.0f;                    ///< weight of that pose
    };

    virtual ~iGraphics() = default;
    virtual void beginRender() = 0;
    virtual void endRender() = 0;
    virtual UInt getHeight() const = 0;              ///< logical
    virtual UInt getWidth() const = 0;               ///< logical
    virtual void setResetPending(Bool pending) = 0;  ///< the next beginRender() resets the device
    virtual Bool isResetPending() const = 0;
    virtual UInt getSpriteCapacity() const = 0;
    virtual void resizeBuffers(UInt sprites) = 0;
    virtual void screenshot() = 0;
    virtual void render(const sUnit& unit, UInt render_type) = 0;
    virtual void render(const sSprite& sprite, cTexture* texture, UInt render_type) = 0;
    /// Takes the texture by name (none for an empty name); overlay goes on as the render type.
    virtual void render(const sSprite& sprite, const String& texture, Bool overlay) = 0;
    virtual void textOut(const WString& text) = 0;
    /// left, top, right, bottom in display coordinates: the client area, in full screen the whole window.
    virtual void getWindowRect(Float (&rect)[4]) const = 0;
    virtual void showTriangles(Bool show) = 0;
    virtual Bool isFrameOpen() const = 0;
    virtual void getMask(const String& texture, VECTOR_VECTOR_BOOL& res) const = 0;
    virtual void toLogical(const Vector2& from, Vector2& to) const = 0;
    virtual void toScreen(const Vector2& from, Vector2& to) const = 0;
};

}  // namespace Engine
