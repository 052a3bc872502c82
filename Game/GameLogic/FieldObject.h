#pragma once

#include "Engine/core/Keys.h"
#include "Engine/core/iXML.h"
#include "Engine/graphics/iGraphics.h"
#include "Game/Types.h"

/// Gives a level object its depth on the map: what stands lower on the screen is drawn in front.
///
/// Its position is the ground that it stands on. It is drawn, and hit by the pointer, its height offset higher, and its
/// depth is the offset plus the position's y.
template <class _Base>
class cFieldObject : public _Base {
public:
    using _Base::_Base;

    /// The keys of _Base, then "HeightOffset" (units).
    void loadXML(const Engine::iXML* xml) override {
        _Base::loadXML(xml);
        Engine::readKey(*xml, u"HeightOffset", m_height_offset);
        followGround();
    }
    void setPosition(const Vector2& position) override {
        _Base::setPosition(position);
        followGround();
    }
    Bool pointInRect(const Vector2& point) const override {
        return _Base::pointInRect(point + Vector2(0.0f, m_height_offset));
    }
    void makeSprite(Engine::iGraphics::sSprite& sprite, UInt frame, Float alpha) const override {
        _Base::makeSprite(sprite, frame, alpha);
        for (Engine::iGraphics::sCorner& corner : sprite.corners)
            corner.y -= m_height_offset;
    }
    void makeUnit(Engine::iGraphics::sUnit& unit) const override {
        _Base::makeUnit(unit);
        unit.world[3].y -= m_height_offset;
    }

    Float getHeightOffset() const { return m_height_offset; }

private:
    void followGround() { this->setDeep(m_height_offset + this->getPosition().y); }

    Float m_height_offset = 0.0f;
};
