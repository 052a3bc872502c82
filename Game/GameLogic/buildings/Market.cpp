#include "Game/GameLogic/buildings/Market.h"

#include <algorithm>

#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Timer.h"
#include "Game/CommonUI/Chance.h"
#include "Game/CommonUI/NewControlEffect.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/goals/LoadGoal.h"
#include "Game/GameLogic/men/FriendMan.h"
#include "Game/GameUI/Tactic/TacticMap.h"

using namespace Engine;

namespace {

constexpr char possible_effect[] = "Effects/UpAvailEffect.xml";
constexpr ULong least_task = 100;        ///< bytes in a saved level
constexpr std::size_t most_tasks = 200;  ///< of one market

}  // namespace

cMarket::cMarket(cView* parent) : cBuilding(parent) {
}

cMarket::~cMarket() = default;

void cMarket::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXML(xml);
    readKey(*xml, u"random_period", m_random_period);
    readKey(*xml, u"random_duration", m_random_duration);
    readKey(*xml, u"progress_panel_pos", m_progress_panel_pos);
    readKey(*xml, u"progress_panel_offset", m_progress_panel_offset);
}

// Its trades ---------------------------------------------------------------------------------------------------------

void cMarket::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cBuilding::loadXmlState(xml);
    readKey(*xml, u"Ordered", m_is_ordered);
}

void cMarket::addTask(std::unique_ptr<cMarketTask> task) {
    if (!m_tasks.emplace(task->getId(), task.get()).second)
        throw String("cMarket: two trades are called \"") + task->getId() + "\"";
    task->setInitState();
    m_ordered.push_back(task.get());
    m_owned.push_back(std::move(task));
}

void cMarket::loadTasks(const iXML* xml) {
    ENGINE_MARK;
    iXML* list = nullptr;
    if (!xml->get("Tasks", list))
        return;
    if (list->getTagCount() > most_tasks)
        throw String("cMarket: ") + std::to_string(list->getTagCount()) + " trades are too many";
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        auto task = std::make_unique<cMarketTask>(*this);
        task->loadXMLState(tag);
        addTask(std::move(task));
    }
}

void cMarket::saveBinState(iArch& arch) {
    cBuilding::saveBinState(arch);
    Int count = static_cast<Int>(m_tasks.size());
    arch << count;
    for (const auto& [id, task] : m_tasks)
        task->saveBinState(arch);
    Int ordered = m_is_ordered ? 1 : 0;
    arch << ordered;
}

void cMarket::readTasks(iArch& arch) {
    ENGINE_MARK;
    for (Int left = readCount(arch, least_task, "trades of a market"); left > 0; --left) {
        auto task = std::make_unique<cMarketTask>(*this);
        task->loadBinState(arch);
        addTask(std::move(task));
    }
    std::stable_sort(m_ordered.begin(), m_ordered.end(),
                     [](const cMarketTask* a, const cMarketTask* b) { return a->getIndex() < b->getIndex(); });
    Int ordered = 0;
    arch << ordered;
    m_is_ordered = ordered != 0;
}

cMarketTask* cMarket::findTask(const String& id) const {
    const auto found = m_tasks.find(id);
    return found == m_tasks.end() ? nullptr : found->second;
}

cMarketTask* cMarket::getDependentTask(const cMarketTask* task) const {
    return task->hasDependency() ? findTask(task->getDepends()) : nullptr;
}

Bool cMarket::isActivationAllowed(const cMarketTask* task) const {
    const cMarketTask* other = getDependentTask(task);
    return !other || other->isDone();
}

void cMarket::checkProductCompleted(cMarketTask* task) const {
    if (task->getProductId() == cMarketTask::no_product || getMap().getProduct(task->getProductId()) <= 0)
        return;
    task->setDone(true);
    task->setActive(false);
}

std::vector<cMarketTask*> cMarket::getActiveTasks() const {
    std::vector<cMarketTask*> res;
    std::copy_if(m_ordered.begin(), m_ordered.end(), std::back_inserter(res),
                 [](const cMarketTask* task) { return task->isActive(); });
    std::stable_sort(res.begin(), res.end(),
                     [](const cMarketTask* a, const cMarketTask* b) { return a->getIndex() < b->getIndex(); });
    return res;
}

void cMarket::activateTask(cMarketTask* task) {
    task->setActive(true);
    task->setFinishedOnce(false);
    if (task->getUpgradeState() == cUpgradableUnit::idle)
        task->setLevel(0);
}

void cMarket::deactivateTask(cMarketTask* task) {
    task->setActive(false);
}

void cMarket::clearWorkingMen() {
    for (cMarketTask* task : m_ordered)
        task->clearUpgradeMen();
}

// The timetable ------------------------------------------------------------------------------------------------------

void cMarket::setInitState() {
    ENGINE_MARK;
    cBuilding::setInitState();
    setOnClick(onMarketClick);
    for (cMarketTask* task : m_ordered)
        checkProductCompleted(task);
    getMap().saveUpgrades(m_ordered);
    m_time = 0.0f;
    if (m_is_ordered)
        startRun();
    else
        makeTimetable();
    m_has_old_goods = cCargoStorage::getCargo().total(true) > 0;
}

void cMarket::startRun() {
    m_current = -1;
    if (m_ordered.empty())
        return;
    m_next_stamp = m_ordered.front()->getStartTime();
    m_repeat = m_ordered.front()->isRepeated();
    for (cMarketTask* task : m_ordered)
        task->setRepeated(m_repeat);
}

void cMarket::makeTimetable() {
    m_timetable.clear();
    for (cMarketTask* task : m_ordered) {
        if (task->getLength() == 0.0f && !task->isRepeated() && task->isDone())
            task->setActive(false);
        else
            m_timetable.push_back({drawIfRandom(task->getStartTime(), m_random_period), task});
    }
    calcNextTimeStamp();
}

Float cMarket::drawIfRandom(Float time, Float range) const {
    return time == static_cast<Float>(cMarketTask::at_random) ? drawBetween(0.0f, range) : time;
}

void cMarket::calcNextTimeStamp() {
    std::stable_sort(m_timetable.begin(), m_timetable.end(),
                     [](const sEntry& a, const sEntry& b) { return a.time < b.time; });
    if (!m_timetable.empty())
        m_next_stamp = m_timetable.front().time;
}

void cMarket::removeScheduleItem(const cMarketTask& task) {
    std::erase_if(m_timetable, [&task](const sEntry& entry) { return entry.task == &task; });
}

void cMarket::process() {
    cBuilding::process();
    if (getMap().isLocked())
        return;
    if (m_has_old_goods && isPlayerConnected()) {
        m_has_old_goods = false;
        fetchGoods();
    }
    if (m_is_ordered) {
        if (m_next_stamp < 0.0f)
            return;
        processOrderedTasks();
    } else if (m_time >= m_next_stamp) {
        processTimetable();
    }
    m_time += cTimer::getInstance()->getStep();
}

void cMarket::processTimetable() {
    std::erase_if(m_timetable, [this](sEntry& entry) { return entry.time <= m_time && change(entry); });
    calcNextTimeStamp();
}

/// Opens or shuts a trade that is due. True if that was its last change.
Bool cMarket::change(sEntry& entry) {
    cMarketTask* task = entry.task;
    if (task->isActive()) {
        deactivateTask(task);
        if (!task->isRepeated())
            return true;
        entry.time += drawIfRandom(task->getDelay(), m_random_period);
        return false;
    }
    if (!isActivationAllowed(task))
        return false;
    activateTask(task);
    entry.time += drawIfRandom(task->getLength(), m_random_duration);
    return task->getLength() == 0.0f;
}

void cMarket::processOrderedTasks() {
    const Int count = static_cast<Int>(m_ordered.size());
    if (m_time < m_next_stamp || m_current >= count || count == 0)
        return;
    if (m_current >= 0)
        deactivateTask(m_ordered[static_cast<std::size_t>(m_current)]);
    ++m_current;
    if (m_current == count) {
        if (!m_repeat)
            return;
        m_current = 0;
    }
    cMarketTask* task = m_ordered[static_cast<std::size_t>(m_current)];
    if (!isActivationAllowed(task))
        return;
    activateTask(task);
    m_next_stamp += task->getLength();
}

// What it has sold ---------------------------------------------------------------------------------------------------

std::shared_ptr<cLoadGoal> cMarket::makeLoadGoal(Int type, Int amount, Long transaction) const {
    auto goal = std::make_shared<cLoadGoal>();
    goal->setSrc(getUnderPoint());
    goal->setCargoType(type);
    goal->setIndex(amount);
    goal->setTransactionId(transaction);
    return goal;
}

/// So much of it men are to fetch, or are on their way to.
Int cMarket::countFetched(Int type) const {
    Int res = 0;
    const auto add = [&](const cGoal& goal) {
        const Bool is_here = goal.getType() == goalLoad && goal.goesToSrc() && goal.getSrc() == getUnderPoint();
        if (!is_here || goal.getCargoType() != type || (goal.getUnit() && goal.getUnit()->keepsWaiting(goal, -1)))
            return;
        res += goal.getIndex();
    };
    for (const auto& goal : getMap().getGoals()->getGoals())
        add(*goal);
    for (const cFriendMan* man : getMap().getBusyMen()) {
        if (man->getGlobalGoal())
            add(*man->getGlobalGoal());
    }
    return res;
}

void cMarket::fetchGoods() {
    ENGINE_MARK;
    cTacticMap& map = getMap();
    for (Int type = 0; type < resource_count; ++type) {
        Int left = cCargoStorage::getCargo()[type] - countFetched(type);
        while (left > 0) {
            const Int load = type == resourceMoney ? left : 1;
            map.getGoals()->addGoal(makeLoadGoal(type, load, map.makeTransaction()));
            left -= load;
        }
    }
}

// The player's hand --------------------------------------------------------------------------------------------------

void cMarket::onMarketClick(cView* view) {
    static_cast<cMarket*>(view)->marketClicked();
}

void cMarket::marketClicked() {
    ENGINE_MARK;
    if (!isPlayerConnected() || getMap().isLocked())
        return;
    fetchGoods();
    showMarketWindow();
}

// What is seen -------------------------------------------------------------------------------------------------------

void cMarket::updateProgressPanel() {
    Vector2 place = cControl::getPosition() + m_progress_panel_pos;
    for (cMarketTask* task : m_ordered) {
        if (task->getUpgradeState() == cUpgradableUnit::idle) {
            task->hidePanel();
            continue;
        }
        task->showPanel(place);
        place += m_progress_panel_offset;
    }
}

/// A trade that has become possible catches the eye, once.
void cMarket::updateView(Bool hide) {
    cBuilding::updateView(hide);
    if (hide)
        return;
    Bool is_new = false;
    for (cMarketTask* task : m_ordered) {
        if (!task->isActive() || task->isPlan())
            continue;
        const Bool allowed = task->isAllowed();
        is_new = is_new || (allowed && !task->wasAllowed());
        task->setWasAllowed(allowed);
    }
    if (is_new && isShown() && !getMap().isLocked())
        cNewControlEffect::play(this, *this, possible_effect, getHeightOffset());
}
