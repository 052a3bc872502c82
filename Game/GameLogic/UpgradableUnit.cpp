#include "Game/GameLogic/UpgradableUnit.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Log.h"
#include "Engine/core/iXML.h"
#include "Game/CommonUI/FlyingNumber.h"
#include "Game/CommonUI/ProgressFloatExt.h"
#include "Game/CommonUI/SimpleEffect.h"
#include "Game/GameLogic/buildings/Building.h"
#include "Game/GameLogic/goals/DeliveryGoal.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/goals/UpgradeGoal.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

cUpgradableUnit::cUpgradableUnit() = default;

cUpgradableUnit::~cUpgradableUnit() {
    forgetGoals();
}

cTacticMap& cUpgradableUnit::getLevelMap() {
    return *cTacticMap::getInstance();
}

void cUpgradableUnit::forgetGoals() {
    for (cGoal* goal : m_goals)
        goal->forgetUnit();
    m_goals.clear();
}

// What it wants ------------------------------------------------------------------------------------------------------

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

Int cUpgradableUnit::getGoalType() const {
    return goalUpgrade;
}

Int cUpgradableUnit::getNeededMen(Int) const {
    const cUpgrade* row = getUpgradeRow();
    const Int least = isAtTop() ? 0 : 1;
    return row ? std::max(row->men, least) : 0;
}

Float cUpgradableUnit::getUpgradeTime() const {
    const cUpgrade* row = getUpgradeRow();
    return row ? row->time : 0.0f;
}

Bool cUpgradableUnit::isUpgradeAllowed() {
    if (isAtTop())
        return false;
    cTacticMap& map = getLevelMap();
    return map.getGlobalCargo(false).covers(getPrice()) && map.getNumberOfMen() >= getNeededMen(getGoalType());
}

Bool cUpgradableUnit::isEnoughForUpgrade() const {
    return m_upgrade_cargo.getCargo().covers(getPrice());
}

void cUpgradableUnit::updateUpgradeCargoCapacity() {
    m_upgrade_cargo.setCapacity(getPrice().total(true));
}

// An order -----------------------------------------------------------------------------------------------------------

void cUpgradableUnit::takeOrder(Long transaction) {
    m_upgrade_cargo.clearCargo();
    updateUpgradeCargoCapacity();
    m_finished_men = 0;
    m_order = transaction;
}

Bool cUpgradableUnit::createUpgradeGoals() {
    updateUpgradeCargoCapacity();
    getLevelMap().updateGlobalResources(true);
    return true;
}

void cUpgradableUnit::orderUpgrade(const std::vector<cBuilding*>& providers, const Vector2& place,
                                   const Vector2& direction, const char* lack_text) {
    ENGINE_MARK;
    orderGoods(providers, place, direction, lack_text);
    cUpgradableUnit::createUpgradeGoals();
    orderBuilders(m_order);
    showProgress(0.0f, getUpgradeTime());
}

void cUpgradableUnit::orderGoods(const std::vector<cBuilding*>& providers, const Vector2& place,
                                 const Vector2& direction, const char* lack_text) {
    ENGINE_MARK;
    takeOrder(getLevelMap().makeTransaction());
    flyPrice(place, direction);
    if (createDeliveryGoals(providers, lack_text))
        m_state = waitingForResources;
    else
        startUpgrade();
}

void cUpgradableUnit::orderBuilders(Long transaction) {
    for (Int i = 0; i < getNeededMen(getGoalType()); ++i) {
        auto goal = getNewBuilderGoal();
        goal->setTransactionId(transaction);
        getLevelMap().getGoals()->addGoal(std::move(goal));
    }
}

Bool cUpgradableUnit::createDeliveryGoals(const std::vector<cBuilding*>& providers, const char* lack_text) {
    ENGINE_MARK;
    for (Int type = 0; type < resource_count; ++type) {
        const Int needed = getNeededResources(type) - m_upgrade_cargo.getCargo()[type];
        if (needed <= 0)
            continue;
        const Int own = takeOwnGoods(type, needed);
        addUpgradeResources(type, own);
        sendFor(type, needed - own, providers, m_order, lack_text);
    }
    return !isEnoughForUpgrade();
}

void cUpgradableUnit::sendFor(Int type, Int needed, const std::vector<cBuilding*>& providers, Long trans,
                              const char* lack_text) {
    ENGINE_MARK;
    for (cBuilding* provider : providers) {
        if (needed < 1)
            break;
        needed -= createDeliveryGoalForBuilding(provider, type, needed, trans);
    }
    if (needed > 0 && createDeliveryGoalsForLoadingMen(type, trans, needed) > 0)
        throw lack_text;
}

std::shared_ptr<cDeliveryGoal> cUpgradableUnit::getNewDeliveryGoal() {
    return std::make_shared<cDeliveryGoal>();
}

std::shared_ptr<cGoal> cUpgradableUnit::getNewBuilderGoal() {
    auto goal = std::make_shared<cUpgradeGoal>();
    goal->setDst(getUnderPoint());
    return goal;
}

Int cUpgradableUnit::createDeliveryGoalForBuilding(cBuilding* provider, Int type, Int amount, Long trans) {
    ENGINE_MARK;
    if (amount < 0)
        throw "cUpgradableUnit::createDeliveryGoalForBuilding(): needed amount < 0";
    const Int taken = provider->removeResourceItems(type, amount);
    provider->lockResourceItems(type, taken);
    const Int loads = type == resourceMoney ? std::min(taken, 1) : taken;
    for (Int i = 0; i < loads; ++i) {
        auto goal = getNewDeliveryGoal();
        goal->setIndex(type == resourceMoney ? taken : 1);
        goal->setSrc(provider->getUnderPoint());
        goal->setDst(getUnderPoint());
        goal->setCargoType(type);
        goal->setTransactionId(trans);
        getLevelMap().getGoals()->addGoal(std::move(goal));
    }
    return taken;
}

/// The goods go back, if they have to, to where he fetched them.
Int cUpgradableUnit::createDeliveryGoalForMan(cFriendMan* man, Int type, Long trans) {
    if (!man->canDelivery(getUnderPoint()))
        return 0;
    const Int amount = man->getCargo()[type];
    auto goal = getNewDeliveryGoal();
    goal->setIndex(amount);
    goal->setSrc(man->getGlobalGoal()->getSrc());
    goal->setDst(getUnderPoint());
    goal->setCargoType(type);
    goal->setTransactionId(trans);
    goal->setGoesToSrc(false);
    man->deliveryTo(getUnderPoint(), goal.get());
    return amount;
}

Int cUpgradableUnit::createDeliveryGoalsForLoadingMen(Int type, Long trans, Int amount) {
    ENGINE_MARK;
    if (amount < 0)
        throw "cUpgradableUnit::createDeliveryGoalsForLoadingMen(): needed amount < 0";
    std::vector<cFriendMan*> loading;
    getLevelMap().getLoadingMen(loading);
    for (cFriendMan* man : loading) {
        if (amount < 1)
            break;
        amount -= grabFromMan(man, type, trans, amount);
    }
    return amount;
}

/// One item he brings himself; of several it takes what it needs at once.
Int cUpgradableUnit::grabFromMan(cFriendMan* man, Int type, Long trans, Int amount) {
    sResourceCargo cargo = man->getCargo();
    if (cargo[type] <= 0)
        return 0;
    if (cargo[type] == 1)
        return createDeliveryGoalForMan(man, type, trans);
    const Int taken = std::min(cargo[type], amount);
    cargo[type] -= taken;
    man->setCargo(cargo);
    addUpgradeResources(type, taken);
    if (cargo.total(true) == 0) {
        if (cLog* log = tacticLog())
            log->printf(
                u"cUpgradableUnit::createDeliveryGoalsForLoadingMen(): we cancel LOAD_WAREHOUSE_GOAL because grabbed "
                u"all man's resources");
        man->waitTask(true);
    }
    return taken;
}

void cUpgradableUnit::flyGoods(const sResourceCargo& goods, Int sign, const Vector2& place, const Vector2& direction,
                               eSpread spread) {
    constexpr Float gap = 50.0f;  ///< units
    Float offset = spread == eSpread::behind ? 0.0f : 1.0f;
    for (Int type = 0; type < resource_count; ++type) {
        if (goods[type] <= 0)
            continue;
        const Vector2 at = place + direction * offset;
        new cFlyingNumber(getLevelMap().getObjectsLayer(), at.x, at.y, sign * goods[type], type, false);
        const Float next = std::abs(offset) + gap;
        offset = spread == eSpread::behind ? -next : -std::copysign(next, offset);
    }
}

void cUpgradableUnit::flyPrice(const Vector2& place, const Vector2& direction) const {
    sResourceCargo price;
    for (Int type = 0; type < resource_count; ++type)
        price[type] = getNeededResources(type);
    flyGoods(price, -1, place, direction);
}

void cUpgradableUnit::endOrder(Long transaction) {
    if (isOrder(transaction))
        finishUpgrade();
}

void cUpgradableUnit::finishUpgrade() {
    closeOrder();
}

void cUpgradableUnit::closeOrder() {
    removeWithGoal(getGoalType());
    m_finished_men = 0;
    consumeUpgradeResources();
    m_state = idle;
    hideProgress();
}

// Its men ------------------------------------------------------------------------------------------------------------

void cUpgradableUnit::addMan(cMan* man) {
    if (std::find(m_upgrade_men.begin(), m_upgrade_men.end(), man) == m_upgrade_men.end())
        m_upgrade_men.push_back(man);
}

void cUpgradableUnit::removeWithGoal(Int goal_type) {
    std::erase_if(m_upgrade_men, [goal_type](const cMan* man) {
        return !man->getGlobalGoal() || man->getGlobalGoal()->getType() == goal_type;
    });
}

namespace {

Bool worksWith(const cMan& man, const cGoal& goal) {
    const cGoal* own = man.getGlobalGoal();
    return own && own->getType() == goal.getType() && own->getTransactionId() == goal.getTransactionId();
}

}  // namespace

Bool cUpgradableUnit::isMenEnough(const cGoal* goal) const {
    const auto count = std::count_if(m_upgrade_men.begin(), m_upgrade_men.end(),
                                     [goal](const cMan* man) { return worksWith(*man, *goal); });
    return static_cast<Int>(count) >= getNeededMen(goal->getType());
}

void cUpgradableUnit::hireMen(const cGoal* goal) {
    ENGINE_MARK;
    for (cMan* man : std::vector(m_upgrade_men)) {
        if (worksWith(*man, *goal))
            man->upgrade(this);
    }
}

Bool cUpgradableUnit::countFinishedMan() {
    return ++m_finished_men == getNeededMen(goalUpgrade);
}

Int cUpgradableUnit::findClosestPoint(const cMan&, Int) const {
    return getUnderPoint();
}

// What is seen of it -------------------------------------------------------------------------------------------------

void cUpgradableUnit::loadProgress(const iXML* xml, cView* owner, const char* tag_name) {
    ENGINE_MARK;
    iXML* tag = nullptr;
    if (!xml->get(tag_name, tag))
        return;
    m_progress = new cProgressFloatExt(owner);
    m_progress->loadXML(tag);
    m_progress->hide();
}

void cUpgradableUnit::showProgress(Float cur, Float max) {
    if (!m_progress)
        return;
    m_progress->setProgressMaxValue(max);
    m_progress->setProgressCurrentValue(cur);
    m_progress->progressChanged();
    m_progress->show();
}

void cUpgradableUnit::setProgress(Float value) {
    if (!m_progress)
        return;
    m_progress->setProgressCurrentValue(value);
    m_progress->progressChanged();
}

void cUpgradableUnit::hideProgress() {
    if (m_progress)
        m_progress->hide();
}

void cUpgradableUnit::createUpgradeEffect(cControl* control) {
    m_effect = new cSimpleEffect(control, "Effects/MakeUpgradeEffect.xml");
    m_effect->setPosition(m_effect->getPosition() + control->getPosition());
    m_effect->hide();
}

void cUpgradableUnit::showEffect(Bool show) {
    if (m_effect)
        m_effect->setShown(show);
}

// Files --------------------------------------------------------------------------------------------------------------

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
