#pragma once

#include <memory>

#include "Game/Types.h"

class cBuilding;
class cLevelObject;
class cMan;
class cTacticMap;
class cUpgradableUnit;

/// What a goal is. The numbers stand in reports and logs.
enum eGoalType : Int {
    goalBuildFence = 0,
    goalBuildRoad = 1,
    goalDeliveryFence = 2,
    goalDelivery = 3,
    goalDeliveryMarket = 4,
    goalDeliveryRoad = 5,
    goalDestroyBuilding = 6,
    goalDestroyRoad = 7,
    goalEnemyFence = 8,
    goalLoad = 9,
    goalMarket = 10,
    goalMine = 11,
    goalPray = 12,
    goalStealResources = 13,
    goalUpgrade = 14,
    goalBuildBridgeRoad = 15,
    goalDeliveryBridge = 16,
};

/// One job for one man: fetch one load, work at one place.
///
/// It waits in the level's list until the dispatch gives it to a man (assign); from then on the man's arrivals drive
/// it: execute() answers each with onSrc() or onDst(), and doFinalWork() does what the goal is for. Goals with the same
/// transaction belong together.
///
/// cancel() calls it off, once: what was reserved for it goes back (giveBack), its man is free, and with it goes the
/// rest of its transaction, which can't be finished without it. Goals that stand alone take along only those that still
/// wait.
///
/// The list and the man share a goal; it goes with the last of them. Whoever calls one that may end in that call holds
/// it himself meanwhile.
class cGoal : public std::enable_shared_from_this<cGoal> {
public:
    explicit cGoal(Int type) : m_type(type) {}
    virtual ~cGoal();
    cGoal(const cGoal&) = delete;
    cGoal& operator=(const cGoal&) = delete;

    virtual const Int& getType() const { return m_type; }
    virtual void setType(const Int& type) { m_type = type; }
    virtual const Int& getIndex() const { return m_index; }
    virtual void setIndex(const Int& index) { m_index = index; }
    virtual const Int& getSrc() const { return m_src; }
    virtual void setSrc(const Int& src) { m_src = src; }
    virtual const Int& getDst() const { return m_dst; }
    virtual void setDst(const Int& dst) { m_dst = dst; }
    virtual const Int& getCargoType() const { return m_cargo_type; }
    virtual void setCargoType(const Int& type) { m_cargo_type = type; }
    virtual const Bool& isCancelled() const { return m_cancelled; }
    virtual void setCancelled(const Bool& cancelled) { m_cancelled = cancelled; }
    virtual const Long& getTransactionId() const { return m_transaction_id; }
    virtual void setTransactionId(const Long& id) { m_transaction_id = id; }

    /// Starts it with that man. False if he can't.
    virtual Bool assign(cMan* man);
    virtual void cancel();
    virtual void execute();  ///< the man has arrived
    /// Must it wait while that transaction has priority (-1: none)?
    virtual Bool filter(Long) { return false; }
    virtual Bool isSelfContained() const { return true; }  ///< its transaction is nothing but it
    virtual void doFinalWork() {}
    virtual Bool mustArrange() const { return false; }  ///< he takes his place in the ring before the final work
    virtual void onSrc();
    virtual void onDst();
    virtual const Bool& hasComeToBay() const { return m_came_to_bay; }
    virtual void setCameToBay(const Bool& came) { m_came_to_bay = came; }

    cMan* getMan() const { return m_man; }
    void setMan(cMan* man) { m_man = man; }
    Bool goesToSrc() const { return m_goes_to_src; }
    void setGoesToSrc(Bool goes_to_src) { m_goes_to_src = goes_to_src; }
    cUpgradableUnit* getUnit() const { return m_unit; }
    void setUnit(cUpgradableUnit* unit);  ///< which makes the goal forget it when it ends
    void forgetUnit() { m_unit = nullptr; }
    Bool isCalledOff() const { return m_called_off; }
    /// Calls off all goals of its transaction that still wait.
    void deleteTransaction();
    void logGoalInfo() const;
    UInt getNumber() const { return m_number; }  ///< its own, in the order of their making

protected:
    static cTacticMap& getMap();
    void logAssign(const cMan* man) const;
    Bool sendToDst(cMan* man);  ///< he has the goal, and goes; false if there is no way
    /// What stands on that point; null for nothing, and for no point.
    static cLevelObject* getObjectAt(Int point);
    static cBuilding* getBuildingAt(Int point);
    /// What was reserved for it goes back where it came from. Its man, if any, still has the goal.
    virtual void giveBack() {}
    /// Do the men who have begun on its transaction stop too when it is called off?
    virtual Bool endsTransaction() const { return !isSelfContained(); }
    /// He has done his part: he is free, and takes a place where he is.
    void releaseMan();

private:
    static inline UInt s_last_number = 0;

    const UInt m_number = ++s_last_number;
    cMan* m_man = nullptr;  ///< who carries it out; not owned
    Int m_type;
    Int m_index = 0;  ///< the amount of a load of money
    Int m_src = -1;
    Int m_dst = -1;
    Int m_cargo_type = -1;
    Bool m_cancelled = false;   ///< to be called off at the next arrival
    Bool m_called_off = false;  ///< it has been
    Long m_transaction_id = -1;
    Bool m_goes_to_src = false;
    Bool m_came_to_bay = false;         ///< the man stands at the loading bay of his source
    cUpgradableUnit* m_unit = nullptr;  ///< what it works on, where that is not found by its point; not owned
};
