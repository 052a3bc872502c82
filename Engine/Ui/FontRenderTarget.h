#pragma once

#include <string_view>

#include "Engine/graphics/Texture.h"

namespace Engine {

class cTrueType;

/// A line of text as one picture on the device, drawn anew when the text or its font changes.
class cFontRenderTarget {
public:
    /// True if the picture is another one now.
    Bool update(std::u16string_view text, cTrueType& font);

    cTexture& getTexture() { return m_texture; }
    const Vector2& getSize() const { return m_size; }    ///< of the picture, pixels
    Float getTextWidth() const { return m_text_width; }  ///< from pen to pen, pixels

private:
    void blit(std::u16string_view text, cTrueType& font);

    cTexture m_texture;
    Vector2 m_size{0.0f};
    Float m_text_width = 0.0f;
    WString m_text;
    const cTrueType* m_font = nullptr;  ///< that drew it; only compared
};

}  // namespace Engine
