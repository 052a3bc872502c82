#include "Game/GameLogic/buildings/Warehouse.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Engine.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/TimedEffect.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cWarehouse::cWarehouse(cView* parent) : cUpgradableBuilding(parent), m_goods(new cPicture(this)) {
}

void cWarehouse::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXML(xml);
    readKey(*xml, u"cargo_levels_amount", m_cargo_levels_amount);
    loadChild(*m_goods, xml, "Goods");
    m_goods->hide();
}

void cWarehouse::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXmlState(xml);
    takeRowCapacity();
    if (getCargo().total(false) > getCapacity())
        cEngine::getInstance()->getInstancePlatform()->showMessageBox(
            u"Error in Warehouse settings", u"Warehouse capacity is less than amount of resources");
}

void cWarehouse::setInitState() {
    cUpgradableBuilding::setInitState();
    updateGoodsVisualState();
}

void cWarehouse::process() {
    cUpgradableBuilding::process();
    if (m_goods->getScale() != getScale())
        m_goods->setScale(getScale());
}

Bool cWarehouse::hasFreeSpace() const {
    const cUpgrade* row = getUpgradeRow();
    return row && row->capacity - getCargo().total(false) > 0;
}

void cWarehouse::upgrade() {
    ENGINE_MARK;
    cUpgradableBuilding::upgrade();
    takeRowCapacity();
    getMap().updateGlobalResources(true);
}

void cWarehouse::finishUpgrade() {
    ENGINE_MARK;
    dropExcess();
    cUpgradableBuilding::finishUpgrade();
}

Bool cWarehouse::degrade(Int amount) {
    ENGINE_MARK;
    if (!cUpgradableBuilding::degrade(amount))
        return false;
    takeRowCapacity();
    adjustResourcesToCapacity();
    updateView(false);
    getMap().updateGlobalResources(true);
    return true;
}

void cWarehouse::adjustResourcesToCapacity() {
    for (Int type = resourceFood; getCargo().total(false) > getCapacity();
         type = type == resourceIron ? Int{resourceFood} : type + 1)
        removeResourceItems(type, 1);
}

Int cWarehouse::addResourceItems(Int type, Int amount) {
    const Int res = cUpgradableBuilding::addResourceItems(type, amount);
    if (res > 0 && !getMap().isLocked())
        cTimedEffect::play("Effects/NewProductEffect.xml", *this);
    return res;
}

Int cWarehouse::removeResourceItems(Int type, Int amount) {
    const Int res = cUpgradableBuilding::removeResourceItems(type, amount);
    updateGoodsVisualState();
    return res;
}

void cWarehouse::onCargoChanged(Int type) {
    cUpgradableBuilding::onCargoChanged(type);
    updateGoodsVisualState();
}

void cWarehouse::updateGoodsVisualState() {
    const Int capacity = std::max(getCapacity(), 1);
    const Int levels = std::max(m_cargo_levels_amount, 0);
    const Int step = std::clamp((getCargo().total(false) * levels + capacity - 1) / capacity, 0, levels);
    const cState* look = findState(String("cargo_") + std::to_string(step));
    if (step == 0 || !look || !isShow())
        return m_goods->hide();
    m_goods->cState::operator=(*look);
    m_goods->setDirty();
    if (!m_goods->isShow())
        m_goods->show();
}

void cWarehouse::updateView(Bool hide) {
    cUpgradableBuilding::updateView(hide);
    updateGoodsVisualState();
}
