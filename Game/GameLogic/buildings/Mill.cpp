#include "Game/GameLogic/buildings/Mill.h"

#include <algorithm>
#include <array>
#include <glm/trigonometric.hpp>

#include "Engine/Sound/Channel.h"
#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Log.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/FlyingNumber.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/goals/LoadGoal.h"
#include "Game/GameLogic/goals/MineGoal.h"
#include "Game/GameLogic/men/Man.h"
#include "Game/GameLogic/men/tasks/MoveInsideMill.h"
#include "Game/GameUI/Tactic/TacticLog.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/Utils.h"
#include "Game/Ui/GameSounds.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

void cMill::cMillUpgrade::loadXML(const iXML* xml) {
    cUpgrade::loadXML(xml);
    readKey(*xml, u"MiningTime", mining_time);
}

cMill::cMill(cView* parent)
    : cUpgradableBuilding(parent),
      m_unload_button(new cShakingButton(this)),
      m_worker_proto(new cPicture(this)),
      m_tool_proto(new cPicture(this)) {
    m_unload_button->setOnClick([](cView* button) { static_cast<cMill*>(button->getParent())->unload(); });
    m_unload_ticks.setTicksParent(this);
    m_mining_ticks.setTicksParent(this);
}

cMill::~cMill() = default;

void cMill::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXML(xml);
    Float degrees = 0.0f;
    readKey(*xml, u"loading_bay_angle", degrees);
    m_loading_bay_angle = glm::radians(degrees);
    readKey(*xml, u"cargo_levels_amount", m_cargo_levels_amount);
    loadChild(*m_unload_button, xml, "UnloadButton");
    loadChild(*m_worker_proto, xml, "MiningManProto");
    loadChild(*m_tool_proto, xml, "MiningManTool");
    for (cControl* part : std::initializer_list<cControl*>{m_unload_button, m_worker_proto, m_tool_proto})
        part->hide();
    loadChild(m_unload_ticks, xml, "UnloadTick");
    loadChild(m_mining_ticks, xml, "MiningTick");
    iXML* tag = nullptr;
    if (!xml->get("MenOffsets", tag))
        return;
    for (UInt i = 0; i < tag->getTagCount(); ++i) {
        iXML* place = nullptr;
        tag->get(i, place);
        String id;
        readKey(*place, u"id", id);
        sWorkplace& workplace = m_men_offsets[id];
        readKey(*place, u"offset", workplace.offset);
        Float turn = 0.0f;
        readKey(*place, u"angle", turn);
        workplace.turn = glm::radians(turn);
    }
}

void cMill::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cUpgradableBuilding::loadXmlState(xml);
    takeRowCapacity();
}

void cMill::setInitState() {
    cUpgradableBuilding::setInitState();
    m_loads = 0;
    setUnloadButtonVisualState();
}

// What its level gives -----------------------------------------------------------------------------------------------

Float cMill::getMiningTime() const {
    const auto* row = static_cast<const cMillUpgrade*>(getUpgradeRow());  // which is what makeUpgrade() made
    return row ? row->mining_time : 0.0f;
}

Int cMill::getMillCapacity() const {
    const cUpgrade* row = getUpgradeRow();
    return row ? row->capacity : 0;
}

Int cMill::getNeededMen(Int goal_type) const {
    return goal_type == goalMine ? getLevel() : cUpgradableBuilding::getNeededMen(goal_type);
}

void cMill::upgrade() {
    ENGINE_MARK;
    cUpgradableBuilding::upgrade();
    takeRowCapacity();
    getMap().updateGlobalResources(true);
}

void cMill::finishUpgrade() {
    ENGINE_MARK;
    dropExcess();
    cUpgradableBuilding::finishUpgrade();
    showMiningProgress();
}

Bool cMill::degrade(Int amount) {
    ENGINE_MARK;
    if (!cUpgradableBuilding::degrade(amount))
        return false;
    takeRowCapacity();
    while (static_cast<Int>(m_unload_ticks.getTicksCount()) > getMillCapacity())
        m_unload_ticks.deleteTick();
    finishMining();
    getMap().updateGlobalResources(true);
    return true;
}

// A round ------------------------------------------------------------------------------------------------------------

void cMill::mineClicked() {
    ENGINE_MARK;
    if (!cBuilding::isPlayerConnected())
        return;
    if (getLevel() == 0 && getUpgradeState() == idle)
        return buildingClicked();
    if (m_mill_state == millIdle && getUpgradeState() == idle && createMiningGoal()) {
        m_mill_state = workersHired;
        m_mining_ticks.addTick();
        updateView(false);
    }
    if (!hasFreeSpace() && getLevel() > 0)
        shakeUnloadButton();
}

Bool cMill::createMiningGoal() {
    m_round = getMap().makeTransaction();
    for (Int i = 0; i < getLevel(); ++i) {
        auto goal = std::make_shared<cMineGoal>();
        goal->setDst(getUnderPoint());
        goal->setCargoType(getProduct());
        goal->setTransactionId(m_round);
        getMap().getGoals()->addGoal(std::move(goal));
    }
    return true;
}

Int cMill::countWorkers() const {
    const auto& men = getUpgradeMen();
    return static_cast<Int>(std::count_if(men.begin(), men.end(), [](const cMan* man) {
        return man->getGlobalGoal() && man->getGlobalGoal()->getType() == goalMine;
    }));
}

/// Its middle for one that the file does not name.
cMill::sWorkplace cMill::findWorkplace(Int number) const {
    const auto found =
        m_men_offsets.find(String("upgrade_") + std::to_string(getLevel()) + "_man_" + std::to_string(number));
    return found == m_men_offsets.end() ? sWorkplace() : found->second;
}

void cMill::incMiningMen(cMan* man) {
    ENGINE_MARK;
    const Int number = countWorkers();
    if (number > getLevel()) {
        if (cLog* log = tacticLog())
            log->printf(u"cMill::incMiningMen(): man %x is unnecessary", getLogId(man));
        removeMan(man);
        man->setCargo({});
        return man->waitTask(true);
    }
    const Vector2 place = cControl::getPosition() + findWorkplace(number).offset;
    man->setTask(std::make_unique<cMoveInsideMill>(this, man, man->getMovablePosition(), place, false));
}

void cMill::manWantsToStartWorking() {
    ++m_men_ready;
    setMiningVisualState();
    if (m_men_ready == getNeededMen(goalMine))
        startMining();
}

void cMill::startMining() {
    ENGINE_MARK;
    setMiningState();
    m_is_mining = true;
    m_mining_elapsed = 0.0f;
    showMiningProgress();
    m_product_step = getMiningTime() / static_cast<Float>(std::max(m_men_ready, 1));
    m_next_product_time = m_product_step;
    startMiningSound();
    updateView(false);
}

/// The bar is the builders' while the mill is to rise.
void cMill::showMiningProgress() {
    if (m_is_mining && getUpgradeState() == idle)
        showProgress(m_mining_elapsed, getMiningTime());
}

void cMill::startMiningSound() {
    constexpr std::array<const char*, resource_count> names{"", "mining_food", "mining_wood", "mining_stone",
                                                            "mining_iron"};
    if (const cGameSounds* sounds = cGameSounds::getInstance())
        m_mining_sound = sounds->play(names.at(static_cast<std::size_t>(getProduct())));
}

void cMill::process() {
    cUpgradableBuilding::process();
    const Float step = cTimer::getInstance()->getStep();
    if (m_is_mining && !getMap().isLocked())
        processMining(step);
    if (!m_button_alarm)
        return;
    m_button_alarm_time -= step;
    if (m_button_alarm_time > 0.0f)
        return;
    m_button_alarm = false;
    m_unload_button->setOscillating(false);
}

void cMill::processMining(Float step) {
    if (!cBuilding::isPlayerConnected())
        return finishMining();
    m_mining_elapsed += step;
    if (getUpgradeState() == idle)
        setProgress(m_mining_elapsed);
    for (const auto* figures : {&m_workers, &m_worker_tools}) {
        for (cPicture* figure : *figures)
            figure->setAnimTime(figure->getAnimTime() + step);
    }
    if (m_mining_elapsed < m_next_product_time)
        return;
    if (!hasFreeSpace())
        return finishMining();
    makeItem();
    m_next_product_time += m_product_step;
    if (m_mining_elapsed >= getMiningTime())
        finishMining();
}

void cMill::makeItem() {
    addResourceItems(getProduct(), 1);
    playGameSound("new_resource");
    setUnloadButtonVisualState();
    const Vector2 place = cControl::getPosition();
    new cFlyingNumber(getMap().getObjectsLayer(), place.x, place.y, 1, getProduct(), false);
    getMap().updateGlobalResources(true);
}

void cMill::finishMining() {
    ENGINE_MARK;
    releaseWorkers();
    clearTask();
    updateView(false);
    if (countWorkers() > 0)
        throw "cMill::finishMining(): set of working men is not cleared";
}

void cMill::releaseWorkers() {
    ENGINE_MARK;
    const std::vector<cMan*> men = getUpgradeMen();
    removeWithGoal(goalMine);
    for (cMan* man : men) {
        if (!man->getGlobalGoal() || man->getGlobalGoal()->getType() != goalMine)
            continue;
        man->setInside(false);
        man->waitTask(true);
    }
}

void cMill::clearTask() {
    m_mill_state = millIdle;
    m_is_mining = false;
    if (getUpgradeState() == idle)
        hideProgress();
    m_mining_ticks.deleteTick();
    setUnloadButtonVisualState();
    m_men_ready = 0;
    setMiningVisualState();
    removeWithGoal(goalMine);
    m_mining_sound.reset();
}

// Fetching -----------------------------------------------------------------------------------------------------------

void cMill::unload() {
    ENGINE_MARK;
    if (!cBuilding::isPlayerConnected() || getProductAmount() == 0)
        return;
    if (cUtils::levelHasFreeStorages(this)) {
        if (createUnloadGoals() && m_unload_ticks.getTicksCount() == 0)
            m_unload_ticks.addTick();
        return updateView(false);
    }
    playGameSound("warehouse_full");
    cUtils::oscillateWarehouses();
}

/// What has been sent for already is not sent for again.
Bool cMill::createUnloadGoals() {
    const Int amount = getProductAmount();
    const Int sent_for = std::min(m_loads, amount);
    m_loads = amount;
    if (amount == sent_for)
        return false;
    const Long transaction = getMap().makeTransaction();
    for (Int i = sent_for; i < amount; ++i) {
        auto goal = std::make_shared<cLoadGoal>();
        goal->setSrc(getUnderPoint());
        goal->setCargoType(getProduct());
        goal->setTransactionId(transaction);
        getMap().getGoals()->addGoal(std::move(goal));
    }
    return true;
}

void cMill::setLoads(Int loads) {
    m_loads = loads;
    if (loads == 0)
        finishUnloading();
}

void cMill::finishUnloading() {
    m_loads = 0;
    m_unload_ticks.clearAllTicks();
    updateView(false);
}

void cMill::onCargoChanged(Int type) {
    cUpgradableBuilding::onCargoChanged(type);
    setUnloadButtonVisualState();
}

Int cMill::removeResourceItems(Int type, Int amount) {
    const Int res = cUpgradableBuilding::removeResourceItems(type, amount);
    setUnloadButtonVisualState();
    return res;
}

void cMill::shakeUnloadButton() {
    m_unload_button->setOscillating(true);
    m_button_alarm = true;
    m_button_alarm_time = m_unload_button->getOscillationTime() * 0.5f;
    playGameSound("wrong_action");
}

// Its looks ----------------------------------------------------------------------------------------------------------

const cControl& cMill::getUnloadButton() const {
    return *m_unload_button;
}

void cMill::setUnloadButtonVisualState() {
    const Int capacity = std::max(getMillCapacity(), 1);
    const Int steps = std::clamp((getProductAmount() * m_cargo_levels_amount + capacity - 1) / capacity, 0,
                                 std::max(m_cargo_levels_amount, 0));
    const cState* look = findState(String("unload_button_") + std::to_string(steps));
    if (!look)
        return;
    m_unload_button->cState::operator=(*look);
    m_unload_button->setStatePicture(m_unload_button->getState());
    m_unload_button->setDirty();
}

void cMill::updateView(Bool hide) {
    cUpgradableBuilding::updateView(hide);
    if (hide || getLevel() == 0 || !cBuilding::isPlayerConnected())
        return m_unload_button->hide();
    m_unload_button->show();
    setUnloadButtonVisualState();
    if (m_loads > 0 && getProductAmount() == 0) {
        if (cLog* log = tacticLog())
            log->printf(u"cMill::updateView(): mill hasn't resources but has load_warehouse goal. ");
    }
}

void cMill::updateInfoTipCargo(sInfoTip& info) {
    cUpgradableBuilding::updateInfoTipCargo(info);
    if (m_is_mining && getUpgradeState() == idle)
        info.text = getGameString("in_progress");
}

void cMill::setMiningVisualState() {
    for (Int number = 1; number <= m_men_ready; ++number)
        showWorker(number);
    for (auto i = static_cast<std::size_t>(m_men_ready); i < m_workers.size(); ++i) {
        m_workers[i]->hide();
        m_worker_tools[i]->hide();
    }
}

void cMill::showWorker(Int number) {
    const auto index = static_cast<std::size_t>(number) - 1;
    while (m_workers.size() <= index) {
        m_workers.push_back(new cPicture(*m_worker_proto));
        m_worker_tools.push_back(new cPicture(*m_tool_proto));
    }
    constexpr Float deep_per_unit = 0.01f;  // they stand close together: men who pass are before or behind all of them
    const sWorkplace place = findWorkplace(number);
    const auto put = [&place](cPicture& figure, const cPicture& proto) {
        figure.setPosition(proto.getPosition() + place.offset);
        figure.setDeep(proto.getDeep() + place.offset.y * deep_per_unit);
        figure.setAngle(proto.getAngle() + place.turn);
        if (!figure.isShow())
            figure.show();
    };
    put(*m_workers[index], *m_worker_proto);
    put(*m_worker_tools[index], *m_tool_proto);
}
