#pragma once

#include "Engine/core/Resource.h"
#include "Engine/core/Types.h"

namespace Engine {

struct sImage;
namespace Platform {
struct sTextureSurface;
}

/// What drawing needs to know of a texture; as it is built, no texture at all.
struct sTextureUse {
    UInt handle = 0;         ///< of the device; 0 while released
    Vector2 uv_scale{1.0f};  ///< picture size / surface size
};

/// A picture on the device, shared by name. Keeps no pixels of its own: update() reads its file again.
///
/// A picture of any size is stored as it is; the scales are below 1 only where the device had to round its surface
/// up to powers of two.
class cTexture : public iResource {
public:
    explicit cTexture(const String& name);
    /// Without a picture, until setPicture() gives it one. Nobody finds it by name, and update() is not for it.
    cTexture() = default;
    ~cTexture() override;

    eResourceType getType() const override { return eResourceType::texture; }
    void preUpdate() override;
    void update() override;

    /// Takes the place of what was there; a picture without pixels only has its size, one without size is none.
    void setPicture(const sImage& image);

    const sTextureUse& getUse() const { return m_use; }
    UInt getHandle() const { return m_use.handle; }  ///< of the device; 0 while released
    Float getUScale() const { return m_use.uv_scale.x; }
    Float getVScale() const { return m_use.uv_scale.y; }
    Float getHalfTexelU() const { return m_half_texel_u; }
    Float getHalfTexelV() const { return m_half_texel_v; }
    UInt getSurfaceWidth() const { return m_surface_width; }
    UInt getSurfaceHeight() const { return m_surface_height; }
    UInt getWidth() const { return m_width; }    ///< of the picture, texels
    UInt getHeight() const { return m_height; }  ///< of the picture, texels

private:
    void load(const String& name);
    void setSurface(const Platform::sTextureSurface& surface, UInt width, UInt height);

    sTextureUse m_use;
    Float m_half_texel_u = 0.0f;  ///< 0.5 / surface width
    Float m_half_texel_v = 0.0f;
    UInt m_surface_width = 0;
    UInt m_surface_height = 0;
    UInt m_width = 0;
    UInt m_height = 0;
};

}  // namespace Engine
