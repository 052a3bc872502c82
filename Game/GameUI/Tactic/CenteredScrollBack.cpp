#include "Game/GameUI/Tactic/CenteredScrollBack.h"

#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"

using namespace Engine;

void cCenteredScrollBack::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cScrollBack::loadXML(xml);
    readKey(*xml, u"BufferZone", m_buffer_zone);
    hideArrows();
}

void cCenteredScrollBack::dragMap(Float dp) {
    const Float moved = moveOffset(dp);
    if (moved != 0.0f)
        dragRegisteredControls({moved, 0.0f});
}

void cCenteredScrollBack::dragRegisteredControls(const Vector2& vdp) {
    for (cControl* item : getRegisteredControls())
        item->setPosition(item->getPosition() + vdp);
}
