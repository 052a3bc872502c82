#include "Game/CommonUI/SimpleEffect.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cSimpleEffect::cSimpleEffect(cView* parent) : cLevelBackgroundObject(parent) {
    cTacticMap* map = cTacticMap::getInstance();
    if (!map)
        return;
    if (map->liesOnMap(parent))
        map->addEffect(this);
    else
        map->unRegisterControl(this);  // its parent takes it along
}

cSimpleEffect::cSimpleEffect(cView* parent, const String& path) : cSimpleEffect(parent) {
    ENGINE_MARK;
    loadView(*this, path);
}

cSimpleEffect::~cSimpleEffect() {
    if (cTacticMap* map = cTacticMap::getInstance())
        map->removeEffect(this);
}
