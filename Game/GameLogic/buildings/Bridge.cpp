#include "Game/GameLogic/buildings/Bridge.h"

#include <glm/trigonometric.hpp>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/GameLogic/Mark.h"
#include "Game/GameLogic/SavedValue.h"

using namespace Engine;

namespace {

constexpr ULong least_upgrade = 36;  // bytes in a saved level

}  // namespace

void cBridge::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXmlState(xml);
    loadUpgrades(xml);
    readKey(*xml, u"BridgeNumber", m_bridge_number);
    readKey(*xml, u"NextLevel", m_next_level);
    Float degrees = 0.0f;
    readKey(*xml, u"Angle", degrees);
    m_angle = glm::radians(degrees);
    readKey(*xml, u"GoldTime", m_gold_time);
    readKey(*xml, u"SilverTime", m_silver_time);
}

Int cBridge::getMark(Bool only_if_passed) const {
    if (only_if_passed && !m_passed)
        return markNone;
    if (m_elapsed < m_gold_time)
        return markGold;
    return m_elapsed < m_gold_time + m_silver_time ? markSilver : markBlue;
}

void cBridge::showBridge(Bool show) {
    show ? this->show() : hide();
}

void cBridge::serialize(iArch& arch) {
    arch << m_bridge_number;
    if (arch.isReading()) {
        m_upgrades.clear();
        for (Int left = readCount(arch, least_upgrade, "upgrades of a bridge"); left > 0; --left) {
            m_upgrades.push_back(makeUpgrade());
            m_upgrades.back()->serialize(arch);
        }
    } else {
        Int count = static_cast<Int>(m_upgrades.size());
        arch << count;
        for (const auto& upgrade : m_upgrades)
            upgrade->serialize(arch);
    }
    arch << m_next_level;
    serializeNumber(arch, m_angle);
    serializeBool(arch, m_passed);
    for (Float* time : {&m_gold_time, &m_silver_time, &m_elapsed})
        serializeNumber(arch, *time);
}

void cBridge::saveBinState(iArch& arch) {
    cUpgradableBuilding::saveBinState(arch);
    serialize(arch);
}

void cBridge::loadBinState(iArch& arch) {
    ENGINE_MARK;
    cUpgradableBuilding::loadBinState(arch);
    serialize(arch);
}
