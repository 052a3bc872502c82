#include "Game/GameLogic/buildings/MarketTask.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/Arch.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/ProgressFloatExt.h"
#include "Game/GameLogic/SavedValue.h"
#include "Game/GameLogic/buildings/Market.h"
#include "Game/GameLogic/buildings/StartPoint.h"
#include "Game/GameLogic/goals/DeliveryGoal.h"
#include "Game/GameLogic/goals/GoalsList.h"
#include "Game/GameLogic/goals/LoadGoal.h"
#include "Game/GameLogic/goals/UpgradeGoal.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

namespace {

constexpr char definition_file[] = "GameLogic/MarketTask.xml";
constexpr Int most_goods = 1000;                 ///< on one side of a trade: each item becomes a goal
constexpr Vector2 flying_direction{1.0f, 0.0f};  ///< numbers stand side by side

}  // namespace

cMarketTask::cMarketTask(cMarket& market) : m_market(market) {
    ENGINE_MARK;
    loadView(*this, definition_file);
}

cMarketTask::~cMarketTask() = default;

void cMarketTask::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cTicksHolder::loadXML(xml);
    loadUpgrades(xml);
    loadProgress(xml, &m_market);
    if (cProgressFloat* panel = getProgressBar())
        panel->setDeep(m_market.getDeep() + panel->getDeep());
    takeTicksBack();
}

// Files --------------------------------------------------------------------------------------------------------------

void cMarketTask::loadXMLState(const iXML* xml) {
    ENGINE_MARK;
    readKey(*xml, u"index", m_index);
    readKey(*xml, u"id", m_id);
    readKey(*xml, u"depends", m_depends);
    readKey(*xml, u"start_time", m_start_time);
    readKey(*xml, u"length", m_length);
    readKey(*xml, u"delay", m_delay);
    readKey(*xml, u"repeat", m_repeat);
    readKey(*xml, u"product_id", m_product_id);
    readKey(*xml, u"dock_number", m_dock_number);
    loadChild(m_src_cargo, xml, "src_cargo");
    loadChild(m_dst_cargo, xml, "dst_cargo");
    requireSense();
}

void cMarketTask::requireSense() const {
    if (m_product_id < no_product || m_product_id >= static_cast<Int>(cGame::product_count))
        throw String("cMarketTask: there is no product ") + std::to_string(m_product_id);
    for (const sResourceCargo* cargo : {&m_src_cargo, &m_dst_cargo}) {
        if (cargo->total(false) > most_goods)
            throw String("cMarketTask: ") + std::to_string(cargo->total(false)) + " goods in one trade are too many";
    }
}

void cMarketTask::serialize(iArch& arch) {
    arch << m_index << m_id << m_depends;
    for (Float* time : {&m_start_time, &m_length, &m_delay})
        serializeNumber(arch, *time);
    serializeBool(arch, m_repeat);
    arch << m_product_id << m_dock_number;
    m_src_cargo.serialize(arch);
    m_dst_cargo.serialize(arch);
    serializeBool(arch, m_done);
}

void cMarketTask::saveBinState(iArch& arch) {
    cUpgradableUnit::saveBinState(arch);
    serialize(arch);
}

void cMarketTask::loadBinState(iArch& arch) {
    ENGINE_MARK;
    cUpgradableUnit::loadBinState(arch);
    serialize(arch);
    for (sResourceCargo* cargo : {&m_src_cargo, &m_dst_cargo}) {
        for (Int& amount : cargo->amounts)
            amount = std::max(amount, 0);
    }
    requireSense();
    m_start_time = m_delay;
}

void cMarketTask::setInitState() {
    updateUpgradeCargoCapacity();
}

// What it is ---------------------------------------------------------------------------------------------------------

Bool cMarketTask::isPlan() const {
    return cTacticMap::isPlan(m_product_id);
}

Bool cMarketTask::hasDependency() const {
    return !m_depends.empty() && m_depends != "no";
}

Bool cMarketTask::isAllowed() const {
    const Bool is_taken = !m_repeat && getUpgradeState() != idle;
    return m_market.isPlayerConnected() && m_active && !is_taken &&
           getLevelMap().getGlobalCargo(false).covers(m_src_cargo);
}

Int cMarketTask::getUnderPoint() const {
    return m_market.getUnderPoint();
}

Int cMarketTask::getGoalType() const {
    return goalMarket;
}

/// Its row is the first one, whatever its level: one may be ordered anew while it is open.
Int cMarketTask::getNeededMen(Int) const {
    return m_upgrades.empty() ? 1 : std::max(m_upgrades.front()->men, 1);
}

Float cMarketTask::getUpgradeTime() const {
    return m_upgrades.empty() ? 0.0f : m_upgrades.front()->time;
}

// An order -----------------------------------------------------------------------------------------------------------

cMarketTask::sOrder* cMarketTask::findOrder(Long transaction) {
    const auto found = std::find_if(m_orders.begin(), m_orders.end(),
                                    [transaction](const sOrder& order) { return order.transaction == transaction; });
    return found == m_orders.end() ? nullptr : &*found;
}

Bool cMarketTask::createUpgradeGoals() {
    ENGINE_MARK;
    cTacticMap& map = getLevelMap();
    std::vector<cBuilding*> providers;
    map.getSortedResourceProviders(providers, getUnderPoint());
    const Long transaction = map.makeTransaction();
    m_orders.push_back({transaction, {}});
    flyGoods(m_src_cargo, -1, m_market.cControl::getPosition(), flying_direction, eSpread::behind);
    m_is_ordering = true;
    for (Int type = 0; type < resource_count; ++type)
        sendFor(type, m_src_cargo[type], providers, transaction,
                "cMarketTask::createUpgradeGoals(): there are not enough resources on the level to perform market "
                "operation");
    m_is_ordering = false;
    if (m_orders.size() == 1)
        startFirstOrder();
    cUpgradableUnit::createUpgradeGoals();
    orderBuilders(transaction);
    createLoadGoals(transaction);
    return true;
}

/// Money is one load of any size, all else goes by the piece. They wait until the deal is done.
void cMarketTask::createLoadGoals(Long transaction) {
    for (Int type = 0; type < resource_count; ++type) {
        const Int amount = m_dst_cargo[type];
        const Int loads = type == resourceMoney ? std::min(amount, 1) : amount;
        for (Int i = 0; i < loads; ++i) {
            auto goal = m_market.makeLoadGoal(type, type == resourceMoney ? amount : 1, transaction);
            goal->setUnit(this);
            getLevelMap().getGoals()->addGoal(std::move(goal));
        }
    }
}

/// With what has come for it so far.
void cMarketTask::startFirstOrder() {
    const sOrder& order = m_orders.front();
    takeOrder(order.transaction);
    setLevel(0);
    for (Int type = 0; type < resource_count; ++type)
        cUpgradableUnit::addUpgradeResources(type, order.goods[type]);
    if (isEnoughForUpgrade())
        startUpgrade();
    else
        setUpgradeState(waitingForResources);
    showProgress(0.0f, getUpgradeTime());
}

void cMarketTask::addUpgradeResources(Int type, Int amount) {
    if (m_is_ordering)
        m_orders.back().goods.add(type, amount);
    else
        cUpgradableUnit::addUpgradeResources(type, amount);
}

Bool cMarketTask::keepForLater(Long transaction, Int type, Int amount) {
    sOrder* order = findOrder(transaction);
    if (!order || order == &m_orders.front())
        return false;
    order->goods.add(type, amount);
    return true;
}

sResourceCargo cMarketTask::getKeptGoods() const {
    sResourceCargo res;
    for (std::size_t i = 1; i < m_orders.size(); ++i)
        res.add(m_orders[i].goods);
    return res;
}

std::shared_ptr<cDeliveryGoal> cMarketTask::getNewDeliveryGoal() {
    return std::make_shared<cDeliveryMarketGoal>(this);
}

std::shared_ptr<cGoal> cMarketTask::getNewBuilderGoal() {
    return std::make_shared<cMarketGoal>(getUnderPoint(), this);
}

/// What it gives is fetched once its order is over; anything else waits until its order is the first.
Bool cMarketTask::keepsWaiting(const cGoal& goal, Long) const {
    const auto is_its = [&goal](const sOrder& order) { return order.transaction == goal.getTransactionId(); };
    if (goal.getType() == goalLoad)
        return std::any_of(m_orders.begin(), m_orders.end(), is_its);
    return m_orders.empty() || !is_its(m_orders.front());
}

// Its end ------------------------------------------------------------------------------------------------------------

void cMarketTask::upgrade() {
    ENGINE_MARK;
    if (!countFinishedMan())
        return;
    setLevel(getLevel() + 1);
    finishTrade();
}

void cMarketTask::finishTrade() {
    m_done = true;
    m_finished_once = true;
    if (!m_repeat) {
        m_active = false;
        m_market.removeScheduleItem(*this);
    }
    flyGoods(m_dst_cargo, 1, m_market.cControl::getPosition(), flying_direction);
    for (Int type = 0; type < resource_count; ++type)
        m_market.returnResourceItems(type, m_dst_cargo[type]);
    if (m_product_id != no_product)
        getLevelMap().addProduct(m_product_id, 1);
    finishUpgrade();
    getLevelMap().updateGlobalResources(true);
    playGameSound("market_action");
    m_market.onMarketAction();
}

void cMarketTask::finishUpgrade() {
    ENGINE_MARK;
    cUpgradableUnit::finishUpgrade();
    if (!m_orders.empty())
        m_orders.pop_front();
    deleteTick();
    if (!m_orders.empty())
        startFirstOrder();
    m_market.updateProgressPanel();
}

/// What has been brought for an order that has not begun is the player's still.
void cMarketTask::endOrder(Long transaction) {
    ENGINE_MARK;
    const sOrder* order = findOrder(transaction);
    if (!order || order == &m_orders.front())
        return cUpgradableUnit::endOrder(transaction);
    for (Int type = 0; type < resource_count; ++type)
        getLevelMap().getStartPoint()->returnResourceItems(type, order->goods[type]);
    std::erase_if(m_orders, [transaction](const sOrder& one) { return one.transaction == transaction; });
    deleteTick();
    m_market.updateProgressPanel();
}

// What is seen of it -------------------------------------------------------------------------------------------------

void cMarketTask::showPanel(const Vector2& place) {
    cProgressFloat* panel = getProgressBar();
    if (!panel)
        return;
    panel->setPosition(place);
    panel->show();
}

void cMarketTask::hidePanel() {
    hideProgress();
}

void cMarketTask::takeTicksBack() {
    setTicksParent(getProgressBar());
}
