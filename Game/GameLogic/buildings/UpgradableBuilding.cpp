#include "Game/GameLogic/buildings/UpgradableBuilding.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/NewControlEffect.h"
#include "Game/CommonUI/ProgressFloatExt.h"
#include "Game/CommonUI/TimedEffect.h"
#include "Game/GameLogic/UpgradeButton.h"
#include "Game/GameLogic/WayPoint.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/goals/UpgradeGoal.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/GameSounds.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

namespace {

constexpr char possible_effect[] = "Effects/UpAvailEffect.xml";

}  // namespace

cUpgradableBuilding::cUpgradableBuilding(cView* parent)
    : cBuilding(parent),
      m_upgrade_button(new cUpgradeButton(this)),
      m_upgrade_tick(new cPicture(this)),
      m_bomb(new cPicture(this)),
      m_bomb_progress(new cProgressFloatExt(this)) {
    m_upgrade_button->setOnClick(
        [](cView* button) { static_cast<cUpgradableBuilding*>(button->getParent())->onUpgradeClick(); });
}

void cUpgradableBuilding::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXML(xml);
    loadUpgrades(xml);
    loadProgress(xml, this);
    loadChild(*m_upgrade_button, xml, "UpgradeButton");
    loadChild(*m_upgrade_tick, xml, "UpgradeTick");
    loadChild(*m_bomb, xml, "Bomb");
    loadChild(*m_bomb_progress, xml, "BombProgress");
    for (cControl* part : std::initializer_list<cControl*>{m_upgrade_button, m_upgrade_tick, m_bomb, m_bomb_progress})
        part->hide();
    createUpgradeEffect(this);
}

// Its state ----------------------------------------------------------------------------------------------------------

void cUpgradableBuilding::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXmlState(xml);
    loadLevelKeys(xml);
    takeRowCapacity();
}

void cUpgradableBuilding::saveBinState(iArch& arch) {
    cBuilding::saveBinState(arch);
    cUpgradableUnit::saveBinState(arch);
}

void cUpgradableBuilding::loadBinState(iArch& arch) {
    cBuilding::loadBinState(arch);
    cUpgradableUnit::loadBinState(arch);
}

void cUpgradableBuilding::setInitState() {
    cBuilding::setInitState();
    loadUpgradeMask();
    setOnClick([](cView* building) { static_cast<cUpgradableBuilding*>(building)->onBuildingClick(); });
}

void cUpgradableBuilding::takeRowCapacity() {
    if (const cUpgrade* row = getUpgradeRow())
        setCapacity(row->capacity);
}

// Its order ----------------------------------------------------------------------------------------------------------

Bool cUpgradableBuilding::upgradePlanWasBought() const {
    const Int plan = getUpgradePlanId(getLevel() + 1);
    return plan == -1 || getMap().getProduct(plan) > 0;
}

Bool cUpgradableBuilding::isUpgradeAllowed() {
    return cBuilding::isPlayerConnected() && upgradePlanWasBought() && cUpgradableUnit::isUpgradeAllowed();
}

Bool cUpgradableBuilding::createUpgradeGoals() {
    ENGINE_MARK;
    const Long transaction = beginOrder();
    flyPrice(cControl::getPosition(), {0.0f, 1.0f});
    std::vector<cBuilding*> providers;
    getMap().getSortedResourceProviders(providers, getUnderPoint());
    const Bool must_wait =
        createDeliveryGoals(providers,
                            "cUpgradableBuilding::createUpgradeGoals(): there are not enough resources on the level to "
                            "upgrade unit");
    if (must_wait)
        setUpgradeState(waitingForResources);
    else
        startUpgrade();
    cUpgradableUnit::createUpgradeGoals();
    for (Int i = 0; i < getNeededMen(goalUpgrade); ++i) {
        auto goal = std::make_shared<cUpgradeGoal>();
        goal->setDst(getUnderPoint());
        goal->setTransactionId(transaction);
        getMap().getGoals()->addGoal(std::move(goal));
    }
    showUpgradeButton();
    return true;
}

void cUpgradableBuilding::upgrade() {
    ENGINE_MARK;
    if (!countFinishedMan())
        return;
    setLevel(getLevel() + 1);
    finishUpgrade();
    loadUpgradeMask();
}

void cUpgradableBuilding::finishUpgrade() {
    ENGINE_MARK;
    cUpgradableUnit::finishUpgrade();
    updateVisualState();
    m_upgrade_marked = true;
    showEffect(false);
    updateView(false);
    if (getMenInside() > 0)
        throw "cUpgradableBuilding::finishUpgrade(): set of working men is not cleared";
}

Int cUpgradableBuilding::getMenInside() const {
    const auto& men = getUpgradeMen();
    return static_cast<Int>(std::count_if(men.begin(), men.end(), [this](const cMan* man) {
        return man->getGlobalGoal() && man->getGlobalGoal()->getType() == getGoalType();
    }));
}

Bool cUpgradableBuilding::degrade(Int amount) {
    if (getUpgradeState() != idle || getLevel() <= getMinLevel())
        return false;
    setLevel(std::max(getLevel() - amount, getMinLevel()));
    loadUpgradeMask();
    return true;
}

void cUpgradableBuilding::damage() {
    ENGINE_MARK;
    cBuilding::damage();
    if (degrade(1))
        updateVisualState();
}

// The player's hand --------------------------------------------------------------------------------------------------

void cUpgradableBuilding::hovered() {
    cBuilding::hovered();
    m_upgrade_marked = false;  // he has seen it
}

void cUpgradableBuilding::buildingClicked() {
    ENGINE_MARK;
    if (!cBuilding::isPlayerConnected() || getLevel() != 0 || getUpgradeState() != idle)
        return;
    if (isUpgradeAllowed()) {
        unhovered();
        createUpgradeGoals();
        updateView(false);
        return getMap().showSitesAnew();
    }
    if (!upgradePlanWasBought()) {
        cUtils::oscillateShops();
        playGameSound("wrong_action");
        ++m_wrong_clicks;
        return;
    }
    if (!isAtTop())
        getMap().showLack(getPrice(), getNeededMen(goalUpgrade));
}

void cUpgradableBuilding::onUpgradeClick() {
    ENGINE_MARK;
    if (getLevel() <= 0 || getUpgradeState() != idle)
        return;
    if (!isUpgradeAllowed())
        return getMap().showLack(getPrice(), getNeededMen(goalUpgrade));
    createUpgradeGoals();
    m_upgrade_marked = false;
    updateView(false);
}

// Bombs --------------------------------------------------------------------------------------------------------------

void cUpgradableBuilding::plantBomb(const Vector2& pos, Float time) {
    m_has_bomb = true;
    m_bomb_time = time;
    m_bomb->setPosition(pos);
    m_bomb->setAnimTime(0.0f);
    m_bomb->show();
    m_bomb_progress->setPosition(pos);
    m_bomb_progress->setProgressMaxValue(time);
    m_bomb_progress->setProgressCurrentValue(time);
    m_bomb_progress->progressChanged();
    m_bomb_progress->show();
}

void cUpgradableBuilding::process() {
    cBuilding::process();
    if (m_has_bomb)
        processBomb();
}

void cUpgradableBuilding::processBomb() {
    const Float step = cTimer::getInstance()->getStep();
    m_bomb_time -= step;
    m_bomb->setAnimTime(m_bomb->getAnimTime() + step);
    m_bomb_progress->setProgressCurrentValue(m_bomb_time);
    m_bomb_progress->progressChanged();
    if (m_bomb_time >= 0.0f)
        return;
    m_has_bomb = false;
    explodeBomb();
}

void cUpgradableBuilding::explodeBomb() {
    ENGINE_MARK;
    if (degrade(1)) {
        finishUpgrade();
        getMap().addToLevelStat(statEnemySuccesses, 1);
        cTimedEffect::play("Effects/ExplosionEffect.xml", *this);
        playGameSound("destroy");
    }
    m_bomb->hide();
    m_bomb_progress->hide();
}

// Its looks ----------------------------------------------------------------------------------------------------------

String cUpgradableBuilding::getVisualStateName() const {
    return String("wait_state_upgrade_") + std::to_string(getLevel());
}

const cControl& cUpgradableBuilding::getUpgradeButton() const {
    return *m_upgrade_button;
}

void cUpgradableBuilding::loadUpgradeMask() {
    const cUpgrade* row = getUpgradeRow();
    if (row && !row->texture_mask.empty())
        loadMask(row->texture_mask);
}

Bool cUpgradableBuilding::isUpgradeOffered() const {
    return getLevel() >= 1 && !isAtTop() && upgradePlanWasBought() && cBuilding::isPlayerConnected();
}

void cUpgradableBuilding::showUpgradeButton() {
    const Bool ordered = getUpgradeState() != idle;
    if (isUpgradeOffered() && !ordered) {
        m_upgrade_button->show();
        m_upgrade_button->setAllowed(isUpgradeAllowed());
    } else {
        m_upgrade_button->hide();
    }
    if (ordered)
        m_upgrade_tick->show();
    else
        m_upgrade_tick->hide();
}

void cUpgradableBuilding::updateView(Bool hide) {
    cBuilding::updateView(hide);
    if (hide) {
        m_upgrade_button->hide();
        m_upgrade_tick->hide();
        return;
    }
    showUpgradeButton();
    if (!m_upgrade_marked || getUpgradeState() != idle || getMap().isLocked() || !isUpgradeAllowed())
        return;
    m_upgrade_marked = false;
    if (getLevel() == 0)
        cNewControlEffect::play(this, *this, possible_effect);
    else if (m_upgrade_button->isShow())
        cNewControlEffect::play(this, *m_upgrade_button, possible_effect);
}

void cUpgradableBuilding::updateInfoTipCargo(sInfoTip& info) {
    if (getUpgradeState() != idle)
        info.text = getGameString(getLevel() == 0 ? "in_progress_of_building" : "in_progress_of_improvement");
    else
        cBuilding::updateInfoTipCargo(info);
}

void cUpgradableBuilding::updateInfoTipPrice(sInfoTip& info) {
    if (getUpgradeState() != idle || isAtTop() || !cBuilding::isPlayerConnected())
        return;
    if (!upgradePlanWasBought()) {
        info.text = getGameString("buy_plan");
        return;
    }
    info.text = getGameString(getLevel() == 0 ? "build" : "upgrade");
    info.cargo = getPrice().amounts;
    info.men = getNeededMen(goalUpgrade);
    info.compare_global = true;
}
