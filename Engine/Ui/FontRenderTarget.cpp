#include "Engine/Ui/FontRenderTarget.h"

#include "Engine/core/CallStack.h"
#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/text/TrueType.h"

namespace Engine {

Bool cFontRenderTarget::update(std::u16string_view text, cTrueType& font) {
    if (m_font == &font && m_text == text)
        return false;
    m_font = &font;
    m_text = WString(text);
    m_text_width = font.measure(text);
    blit(text, font);
    return true;
}

/// A device that only counts pictures gets one of the right size.
void cFontRenderTarget::blit(std::u16string_view text, cTrueType& font) {
    ENGINE_MARK;
    const Bool needs_pixels = cGraphics::getInstance()->getDevice().needsPixels();
    const sImage image = needs_pixels ? font.draw(text) : font.makeSheet(m_text_width);
    m_size = {static_cast<Float>(image.width), static_cast<Float>(image.height)};
    m_texture.setPicture(image);
}

}  // namespace Engine
