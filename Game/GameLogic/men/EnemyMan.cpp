#include "Game/GameLogic/men/EnemyMan.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Game/GameLogic/Mark.h"

using namespace Engine;

cEnemyMan::cEnemyMan(cView* parent) : cMan(parent), m_flag(new cPicture(this)) {
}

void cEnemyMan::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cMan::loadXML(xml);
    loadChild(*m_flag, xml, "Flag");
    m_flag->hide();
}

void cEnemyMan::process() {
    cTaskDealer::process();
    cMan::process();
}

void cEnemyMan::setWalkWithFlagVisualState(Int kind) {
    ENGINE_MARK;
    const char* flag = nullptr;
    switch (kind) {
        case markNone:
            break;
        case markSilver:
            flag = "silver_flag";
            break;
        case markGold:
            flag = "golden_flag";
            break;
        case markBlue:
            flag = "blue_flag";
            break;
        default:
            throw "Visual state for enemy flag is undefined!";
    }
    cLevelObject::changeVisualState("run_with_flag");
    const cState* look = flag ? findState(flag) : nullptr;
    if (!look)
        return m_flag->hide();
    m_flag->cState::operator=(*look);
    m_flag->setDirty();
    m_flag->show();
}
