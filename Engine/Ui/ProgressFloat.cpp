#include "Engine/Ui/ProgressFloat.h"

#include <algorithm>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"

namespace Engine {

namespace {

/// The corners of the side that is cut, and for each the one that it moves towards.
struct sCutSide {
    UInt from[2];
    UInt to[2];
};
constexpr sCutSide cut_sides[] = {
    {{0, 2}, {1, 3}},
    {{1, 3}, {0, 2}},
    {{0, 1}, {2, 3}},
    {{2, 3}, {0, 1}},
};

Float between(Float from, Float to, Float part) {
    return from + (to - from) * part;
}

}  // namespace

void cProgressFloat::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPicture::loadXML(xml);
    readKey(*xml, u"ProgressMaxValue", m_max_value);
    readKey(*xml, u"ProgressCurrentValue", m_current_value);
    readKey(*xml, u"Side", m_side);
    m_side = std::min<UInt>(m_side, cutBottom);
    progressChanged();
}

void cProgressFloat::setProgressMaxValue(Float value) {
    if (value == m_max_value)
        return;
    m_max_value = value;
    progressChanged();
}

void cProgressFloat::setProgressCurrentValue(Float value) {
    if (value == m_current_value)
        return;
    m_current_value = value;
    progressChanged();
}

void cProgressFloat::setSide(eSide side) {
    m_side = side;
    setDirty();
}

void cProgressFloat::setMarker(cPicture* marker) {
    m_marker = marker;
    progressChanged();
}

/// The part that is cut off, 0 to 1.
Float cProgressFloat::getCut() const {
    if (!(m_max_value > 0.0f))
        return 1.0f;
    return 1.0f - std::max(0.0f, std::min(m_current_value, m_max_value)) / m_max_value;
}

void cProgressFloat::makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const {
    cPicture::makeSprite(sprite, frame, alpha);
    const Float cut = getCut();
    const sCutSide& side = cut_sides[m_side];
    for (UInt i = 0; i < 2; ++i) {
        iGraphics::sCorner& corner = sprite.corners[side.from[i]];
        const iGraphics::sCorner& target = sprite.corners[side.to[i]];
        corner.x = between(corner.x, target.x, cut);
        corner.y = between(corner.y, target.y, cut);
    }
    switch (m_side) {
        case cutLeft:
            sprite.u0 = between(sprite.u0, sprite.u1, cut);
            break;
        case cutRight:
            sprite.u1 = between(sprite.u1, sprite.u0, cut);
            break;
        case cutTop:
            sprite.v0 = between(sprite.v0, sprite.v1, cut);
            break;
        default:
            sprite.v1 = between(sprite.v1, sprite.v0, cut);
            break;
    }
}

void cProgressFloat::progressChanged() {
    setDirty();
    if (!m_marker)
        return;
    const auto& corners = getSprite().corners;
    const sCutSide& side = cut_sides[m_side];
    const iGraphics::sCorner& a = corners[side.from[0]];
    const iGraphics::sCorner& b = corners[side.from[1]];
    m_marker->setPosition({(a.x + b.x) * 0.5f, (a.y + b.y) * 0.5f});
}

}  // namespace Engine
