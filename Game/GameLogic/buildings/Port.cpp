#include "Game/GameLogic/buildings/Port.h"

#include <algorithm>
#include <cmath>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"

using namespace Engine;

void cPort::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cMarket::loadXmlState(xml);
    Float degrees = 0.0f;
    readKey(*xml, u"Angle", degrees);
    m_angle = static_cast<Int>(std::lround(std::clamp(degrees, -360.0f, 360.0f)));
}

void cPort::saveBinState(iArch& arch) {
    cMarket::saveBinState(arch);
    arch << m_angle;
}

void cPort::loadBinState(iArch& arch) {
    ENGINE_MARK;
    cMarket::loadBinState(arch);
    readTasks(arch);
    arch << m_angle;
}
