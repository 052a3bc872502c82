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
#include "Game/GameLogic/goals/Goal.h"
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
      m_upgrade_button(new cUpgradeButton(*this)),
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
    m_bomb_bar_offset = m_bomb_progress->getPosition() - m_bomb->getPosition();
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
    ENGINE_MARK;
    requireLevel();
    cBuilding::setInitState();
    loadUpgradeMask();
    setOnClick([](cView* building) { static_cast<cUpgradableBuilding*>(building)->onBuildingClick(); });
}

/// A level is also a number of men and of goals: none is taken unseen. A bridge ends one above its table.
void cUpgradableBuilding::requireLevel() const {
    const Int highest = std::max(static_cast<Int>(getUpgrades().size()), highest_planned_level);
    if (getLevel() < 0 || getLevel() > highest)
        throw String("cUpgradableBuilding::setInitState(): no level ") + std::to_string(getLevel());
}

void cUpgradableBuilding::takeRowCapacity() {
    if (const cUpgrade* row = getUpgradeRow())
        setCapacity(row->capacity);
}

void cUpgradableBuilding::dropExcess() {
    if (getUpgradeState() == idle && cBuilding::getCargo().total(false) > getCapacity())
        stealResourceItems(cBuilding::getCargo().total(false) - getCapacity());
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
    std::vector<cBuilding*> providers;
    getMap().getSortedResourceProviders(providers, getUnderPoint());
    orderUpgrade(
        providers, cControl::getPosition(), {0.0f, 1.0f},
        "cUpgradableBuilding::createUpgradeGoals(): there are not enough resources on the level to upgrade unit");
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
    m_bomb_progress->setPosition(pos + m_bomb_bar_offset);
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

/// A level without a mask of its own keeps the one that there was.
void cUpgradableBuilding::loadUpgradeMask() {
    const cUpgrade* row = getUpgradeRow();
    if (!row || row->texture_mask.empty())
        return;
    loadMask(row->texture_mask);
    m_mask_offset = row->mask_offset;
}

Bool cUpgradableBuilding::pointInRect(const Vector2& point) const {
    return cBuilding::pointInRect(point - m_mask_offset);
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
    if (m_upgrade_marked && getUpgradeState() == idle && !getMap().isLocked() && isUpgradeAllowed())
        markUpgrade();
}

/// Once for each level: on the site, or on the button.
void cUpgradableBuilding::markUpgrade() {
    m_upgrade_marked = false;
    if (getLevel() == 0)
        return cNewControlEffect::play(this, *this, possible_effect, getHeightOffset());
    if (!m_upgrade_button->isShow())
        return;
    cNewControlEffect::play(this, *m_upgrade_button, possible_effect);
    m_upgrade_button->setOscillating(true);
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
        if (getMap().getUpgrades().contains(getUpgradePlanId(getLevel() + 1)))
            info.text = getGameString("buy_plan");
        return;
    }
    info.text = getGameString(getLevel() == 0 ? "build" : "upgrade");
    info.cargo = getPrice().amounts;
    info.men = getNeededMen(goalUpgrade);
    info.compare_global = true;
}
