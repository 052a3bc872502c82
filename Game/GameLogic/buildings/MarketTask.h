#pragma once

#include <deque>

#include "Game/CommonUI/TicksHolder.h"
#include "Game/GameLogic/UpgradableUnit.h"

class cMarket;

/// One trade of a market: goods for goods, or a plan for goods.
///
/// The market opens and shuts it. While it is open it can be ordered, several times over if it can be repeated: the
/// orders are carried out one after the other. Each is a transaction of its own. Men bring the price, one works the
/// deal out, and what it gives lies in the market's store until others have fetched it.
///
/// It is no view. On the map a small bar tells of its orders, with a mark for each (cTicksHolder): a child of the
/// market.
class cMarketTask : public cUpgradableUnit, public cTicksHolder {
public:
    static constexpr Int at_random = -1;  ///< a start, a length or a delay that is drawn by lot
    static constexpr Int no_product = -1;

    /// Sets itself up from "GameLogic/MarketTask.xml".
    explicit cMarketTask(cMarket& market);
    ~cMarketTask() override;

    /// The keys of cTicksHolder, then the child tags "Upgrades" (one row: the men and their time) and "Progress"
    /// (cProgressFloatExt: the bar on the map, whose place the market says).
    void loadXML(const Engine::iXML* xml) override;
    /// The keys "index", "id", "depends", "start_time", "length", "delay" (seconds), "repeat", "product_id",
    /// "dock_number", and the child tags "src_cargo" and "dst_cargo" (sResourceCargo).
    /// Throws "cMarketTask: there is no product <id>" and "cMarketTask: <n> goods in one trade are too many" for more
    /// than 1000 on either side.
    void loadXMLState(const Engine::iXML* xml);
    void saveBinState(Engine::iArch& arch);
    /// What saveBinState() wrote; its first start is then as far off as its delay says.
    void loadBinState(Engine::iArch& arch);
    void setInitState();

    virtual Int getIndex() const { return m_index; }
    virtual void setIndex(Int index) { m_index = index; }
    virtual const String& getId() const { return m_id; }
    virtual void setId(const String& id) { m_id = id; }
    virtual const String& getDepends() const { return m_depends; }
    virtual void setDepends(const String& depends) { m_depends = depends; }
    virtual Float getStartTime() const { return m_start_time; }
    virtual void setStartTime(Float time) { m_start_time = time; }
    virtual Float getLength() const { return m_length; }
    virtual void setLength(Float length) { m_length = length; }
    virtual Float getDelay() const { return m_delay; }
    virtual void setDelay(Float delay) { m_delay = delay; }
    virtual Bool isRepeated() const { return m_repeat; }
    virtual void setRepeated(Bool repeat) { m_repeat = repeat; }
    virtual Int getProductId() const { return m_product_id; }
    virtual void setProductId(Int product_id) { m_product_id = product_id; }
    virtual Bool wasFinishedOnce() const { return m_finished_once; }  ///< since it was opened last
    virtual void setFinishedOnce(Bool finished) { m_finished_once = finished; }
    virtual Bool wasAllowed() const { return m_was_allowed; }  ///< when the market looked last
    virtual void setWasAllowed(Bool allowed) { m_was_allowed = allowed; }
    /// Can it be ordered now?
    virtual Bool isAllowed() const;

    Bool isActive() const { return m_active; }  ///< open now
    void setActive(Bool active) { m_active = active; }
    Bool isDone() const { return m_done; }  ///< carried out, or its product is owned
    void setDone(Bool done) { m_done = done; }
    Bool isPlan() const;  ///< its product is one of the plans
    Bool hasDependency() const;
    Int getDockNumber() const { return m_dock_number; }
    const sResourceCargo& getSrcCargo() const { return m_src_cargo; }  ///< what the player pays
    const sResourceCargo& getDstCargo() const { return m_dst_cargo; }  ///< what he gets
    cMarket& getMarket() const { return m_market; }

    // An order
    /// Throws "cMarketTask::createUpgradeGoals(): there are not enough resources on the level to perform market
    /// operation".
    Bool createUpgradeGoals() override;
    void upgrade() override;
    void finishUpgrade() override;
    void endOrder(Long transaction) override;
    Bool degrade(Int) override { return false; }
    std::shared_ptr<cDeliveryGoal> getNewDeliveryGoal() override;
    std::shared_ptr<cGoal> getNewBuilderGoal() override;
    Bool keepsWaiting(const cGoal& goal, Long trans_id) const override;
    Int getUnderPoint() const override;
    Int getGoalType() const override;
    const sResourceCargo& getPrice() const override { return m_src_cargo; }
    Int getNeededMen(Int goal_type) const override;
    Float getUpgradeTime() const override;
    void addUpgradeResources(Int type, Int amount) override;
    /// Goods for an order that is not yet the first. False if there is none of that number.
    Bool keepForLater(Long transaction, Int type, Int amount);
    sResourceCargo getKeptGoods() const;  ///< for all orders but the first
    std::size_t getOrderCount() const { return m_orders.size(); }

    /// Its bar stands there while it has orders; else it hides.
    void showPanel(const Vector2& place);
    void hidePanel();
    void takeTicksBack();  ///< from wherever they were lent to, to the bar

private:
    struct sOrder {
        Long transaction = -1;
        sResourceCargo goods;  ///< that have come before its turn
    };

    sOrder* findOrder(Long transaction);
    void startFirstOrder();
    void createLoadGoals(Long transaction);
    void finishTrade();
    void requireSense() const;
    void serialize(Engine::iArch& arch);

    cMarket& m_market;  ///< the owner
    Int m_index = 0;
    String m_id;
    String m_depends;
    Float m_start_time = 0.0f;  ///< seconds
    Float m_length = 0.0f;      ///< seconds that it stays open; 0: until it is done
    Float m_delay = 0.0f;       ///< seconds until it comes back
    Bool m_repeat = true;
    Int m_product_id = no_product;
    Int m_dock_number = -1;
    sResourceCargo m_src_cargo;
    sResourceCargo m_dst_cargo;
    Bool m_active = false;
    Bool m_done = false;
    Bool m_finished_once = false;
    Bool m_was_allowed = false;
    std::deque<sOrder> m_orders;  ///< the first is the one at work; not saved
    Bool m_is_ordering = false;   ///< goods that are taken at once are the last order's
};
