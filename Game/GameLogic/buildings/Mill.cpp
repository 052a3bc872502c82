#include "Game/GameLogic/buildings/Mill.h"

#include <glm/trigonometric.hpp>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"

using namespace Engine;

void cMill::cMillUpgrade::loadXML(const iXML* xml) {
    cUpgrade::loadXML(xml);
    readKey(*xml, u"MiningTime", mining_time);
}

void cMill::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXML(xml);
    Float degrees = 0.0f;
    readKey(*xml, u"loading_bay_angle", degrees);
    m_loading_bay_angle = glm::radians(degrees);
}
