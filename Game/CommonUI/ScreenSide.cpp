#include "Game/CommonUI/ScreenSide.h"

#include "Engine/graphics/Graphics.h"

using namespace Engine;

eScreenSide getRoomySide(const Vector2& point) {
    Vector2 middle(400.0f, 300.0f);
    if (const cGraphics* graphics = cGraphics::getInstance())
        middle = Vector2(static_cast<Float>(graphics->getWidth()), static_cast<Float>(graphics->getHeight())) * 0.5f;
    if (point.y > middle.y)
        return point.x > middle.x ? eScreenSide::upLeft : eScreenSide::upRight;
    return point.x > middle.x ? eScreenSide::downLeft : eScreenSide::downRight;
}

Vector2 getSideDirection(eScreenSide side) {
    const Bool left = side == eScreenSide::upLeft || side == eScreenSide::downLeft;
    const Bool up = side == eScreenSide::upLeft || side == eScreenSide::upRight;
    return {left ? -1.0f : 1.0f, up ? -1.0f : 1.0f};
}
