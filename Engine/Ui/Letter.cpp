#include "Engine/Ui/Letter.h"

namespace Engine {

void cLetter::setTextureRect(Float left, Float top, Float right, Float bottom) {
    change(m_left, left);
    change(m_top, top);
    change(m_right, right);
    change(m_bottom, bottom);
}

void cLetter::makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const {
    cControl::makeSprite(sprite, frame, alpha);
    sprite.u0 = m_left;
    sprite.v0 = m_top;
    sprite.u1 = m_right;
    sprite.v1 = m_bottom;
}

}  // namespace Engine
