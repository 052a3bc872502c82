#include "Game/CommonUI/Cloud.h"

#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Engine/graphics/Graphics.h"

using namespace Engine;

void cCloud::loadXML(const iXML* xml) {
    cPicture::loadXML(xml);
    readKey(*xml, u"Speed", m_speed);
}

void cCloud::process() {
    cPicture::process();
    const Float width = static_cast<Float>(cGraphics::getInstance()->getWidth());
    const Float half = getSize().x * 0.5f;
    Vector2 position = getPosition();
    position.x += m_speed * cTimer::getInstance()->getStep();
    if (position.x - half > width)
        position.x = -half;
    else if (position.x + half < 0.0f)
        position.x = width + half;
    setPosition(position);
}
