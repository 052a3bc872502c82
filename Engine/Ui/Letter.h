#pragma once

#include "Engine/Ui/Control.h"

namespace Engine {

/// One character of a line: a quad with its piece of the font's atlas.
///
/// A letter stands for the same place in the text as long as it lives. Where the present text has nothing to show it is
/// blank.
class cLetter final : public cControl {
public:
    using cControl::cControl;

    void setPosition(const Vector2& position) override { moveAlone(position); }  ///< it has no children

    /// In parts of the picture, 0 to 1, from its upper left corner.
    void setTextureRect(Float left, Float top, Float right, Float bottom);
    void setCharacter(char16_t character) { m_character = character; }
    char16_t getCharacter() const { return m_character; }
    void makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const override;

private:
    char16_t m_character = 0;
    Float m_left = 0.0f;
    Float m_top = 0.0f;
    Float m_right = 1.0f;
    Float m_bottom = 1.0f;
};

}  // namespace Engine
