#include "Game/GameLogic/UpgradableUnit.h"

#include <algorithm>
#include <limits>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/iXML.h"

using namespace Engine;

const cUpgrade* cUpgradableUnit::getUpgradeRow() const {
    const auto level = static_cast<std::size_t>(std::max(m_level, 0));
    return level < m_upgrades.size() ? m_upgrades[level].get() : nullptr;
}

const sResourceCargo& cUpgradableUnit::getPrice() const {
    static const sResourceCargo nothing;
    const cUpgrade* row = getUpgradeRow();
    return row ? row->price : nothing;
}

void cUpgradableUnit::addUpgradeResources(Int type, Int amount) {
    m_upgrade_cargo.addResourceItems(type, amount);
}

void cUpgradableUnit::addMan(cMan* man) {
    if (std::find(m_upgrade_men.begin(), m_upgrade_men.end(), man) == m_upgrade_men.end())
        m_upgrade_men.push_back(man);
}

Bool cUpgradableUnit::isEnoughForUpgrade() const {
    for (Int type = 0; type < resource_count; ++type) {
        if (m_upgrade_cargo.getCargo()[type] < getPrice()[type])
            return false;
    }
    return true;
}

void cUpgradableUnit::updateUpgradeCargoCapacity() {
    m_upgrade_cargo.setCapacity(getPrice().total(true));
}

void cUpgradableUnit::loadUpgrades(const iXML* xml) {
    ENGINE_MARK;
    iXML* list = nullptr;
    if (!xml->get("Upgrades", list))
        return;
    m_upgrades.clear();
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        m_upgrades.push_back(makeUpgrade());
        m_upgrades.back()->loadXML(tag);
    }
}

void cUpgradableUnit::loadLevelKeys(const iXML* xml) {
    readKey(*xml, u"Level", m_level);
    readKey(*xml, u"MinLevel", m_min_level);
}

void cUpgradableUnit::saveBinState(iArch& arch) {
    sResourceCargo cargo = m_upgrade_cargo.getCargo();
    arch << m_level << m_min_level;
    cargo.serialize(arch);
}

void cUpgradableUnit::loadBinState(iArch& arch) {
    sResourceCargo cargo;
    arch << m_level << m_min_level;
    cargo.serialize(arch);
    m_upgrade_cargo.clearCargo();
    m_upgrade_cargo.setCapacity(std::numeric_limits<Int>::max());  // a table of its own may come behind this
    for (Int type = 0; type < resource_count; ++type)
        m_upgrade_cargo.addResourceItems(type, cargo[type]);
    updateUpgradeCargoCapacity();
}
