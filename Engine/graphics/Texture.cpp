#include "Engine/graphics/Texture.h"

#include "Engine/core/CallStack.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/PictureFile.h"

namespace Engine {

cTexture::cTexture(const String& name) : iResource(name) {
    ENGINE_MARK;
    load(name);
}

cTexture::~cTexture() {
    preUpdate();
}

/// The device takes all textures with it when it goes, and it goes before the resources do.
void cTexture::preUpdate() {
    if (cGraphics* graphics = cGraphics::getInstance())
        graphics->releaseResource(m_use.handle);
    m_use.handle = 0;
}

void cTexture::update() {
    ENGINE_MARK;
    preUpdate();
    load(getName());
}

void cTexture::load(const String& name) {
    ENGINE_MARK;
    const std::vector<std::uint8_t> file = readPictureFile(name);
    sImageInfo info;
    const Platform::sTextureSurface surface =
        cGraphics::getInstance()->getResource(file.data(), file.size(), name, info);
    setSurface(surface, info.width, info.height);
}

void cTexture::setPicture(const sImage& image) {
    ENGINE_MARK;
    preUpdate();
    if (image.width == 0 || image.height == 0)
        return;
    const std::uint8_t* pixels = image.pixels.empty() ? nullptr : image.pixels.data();
    setSurface(cGraphics::getInstance()->getDevice().createTexture(image.width, image.height, pixels), image.width,
               image.height);
}

void cTexture::setSurface(const Platform::sTextureSurface& surface, UInt width, UInt height) {
    m_use.handle = surface.handle;
    m_surface_width = surface.width;
    m_surface_height = surface.height;
    m_width = width;
    m_height = height;
    m_use.uv_scale.x = static_cast<Float>(m_width) / static_cast<Float>(m_surface_width);
    m_use.uv_scale.y = static_cast<Float>(m_height) / static_cast<Float>(m_surface_height);
    m_half_texel_u = 0.5f / static_cast<Float>(m_surface_width);
    m_half_texel_v = 0.5f / static_cast<Float>(m_surface_height);
}

}  // namespace Engine
