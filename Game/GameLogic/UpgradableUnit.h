#pragma once

#include <algorithm>
#include <memory>
#include <vector>

#include "Game/GameLogic/CargoStorage.h"
#include "Game/GameLogic/Upgrade.h"
#include "Game/Types.h"

namespace Engine {
class cControl;
class cProgressFloat;
}  // namespace Engine
class cBuilding;
class cDeliveryGoal;
class cFriendMan;
class cGoal;
class cMan;
class cSimpleEffect;
class cTacticMap;

/// Anything that rises a level by goods that are brought to it and men who work on it: a building, a stretch of road, a
/// fence.
///
/// At level L it wants row L of its table: the goods first, then so many men at once, each for so many seconds. An
/// order for that (createUpgradeGoals) is one transaction of goals: a delivery for each load, and a goal for each
/// builder. It ends when the last builder is done, or when any of its goals is called off; what was brought until then
/// is spent either way.
class cUpgradableUnit {
public:
    /// What it waits for.
    enum eState : Int { idle = 0, waitingForResources = 1, UPGRADE_STATE = 2 };

    cUpgradableUnit();
    virtual ~cUpgradableUnit();
    cUpgradableUnit(const cUpgradableUnit&) = delete;
    cUpgradableUnit& operator=(const cUpgradableUnit&) = delete;

    virtual Int getLevel() const { return m_level; }
    virtual void setLevel(Int level) { m_level = level; }
    virtual Int getMinLevel() const { return m_min_level; }
    virtual void setMinLevel(Int level) { m_min_level = level; }
    virtual Int getUnderPoint() const = 0;  ///< where men go
    /// Could it be ordered now, as far as the level's stock and men go? Not at the top.
    virtual Bool isUpgradeAllowed();
    virtual Bool createUpgradeGoals();               ///< false if nothing was ordered
    virtual void upgrade() = 0;                      ///< a builder is done
    virtual Bool degrade(Int amount) = 0;            ///< false if it doesn't fall
    virtual void finishUpgrade();                    ///< the order is over, done or not
    virtual void endOrder(Long transaction);         ///< that order ends; nothing if it has none of that number
    virtual Int getGoalType() const;                 ///< of the goals whose men belong to it
    virtual const sResourceCargo& getPrice() const;  ///< of the next level; zero at the top
    virtual Int getNeededResources(Int type) const { return getPrice()[type]; }
    virtual void addUpgradeResources(Int type, Int amount);
    virtual void addMan(cMan* man);                     ///< once
    virtual Int getNeededMen(Int goal_type) const;      ///< to rise: one at least, or it would wait for ever
    virtual Float getUpgradeTime() const;               ///< seconds
    virtual Bool isMenEnough(const cGoal* goal) const;  ///< have all come who work with that goal's man?
    virtual void hireMen(const cGoal* goal);            ///< these begin
    virtual void startUpgrade() { m_state = UPGRADE_STATE; }
    virtual void showProgress(Float cur, Float max);
    virtual void setProgress(Float value);
    virtual void hideProgress();
    virtual std::shared_ptr<cDeliveryGoal> getNewDeliveryGoal();  ///< of no point and no goods yet
    virtual std::shared_ptr<cGoal> getNewBuilderGoal();           ///< of no transaction yet

    /// Must a goal for it wait, though its goods are there?
    virtual Bool keepsWaiting(const cGoal&, Long) const { return false; }
    /// Of the points where it takes goods and builders the one that the man reaches first from src; -1 for none.
    virtual Int findClosestPoint(const cMan& man, Int src) const;

    Int getUpgradeState() const { return m_state; }
    void setUpgradeState(Int state) { m_state = state; }
    /// Is that transaction the order that it has now?
    Bool isOrder(Long transaction) const { return m_state != idle && m_order == transaction; }
    const std::vector<cMan*>& getUpgradeMen() const { return m_upgrade_men; }
    cCargoStorage& getUpgradeCargo() { return m_upgrade_cargo; }
    const cCargoStorage& getUpgradeCargo() const { return m_upgrade_cargo; }
    Bool isEnoughForUpgrade() const;
    void updateUpgradeCargoCapacity();
    void consumeUpgradeResources() { m_upgrade_cargo.clearCargo(); }
    void clearUpgradeMen() { m_upgrade_men.clear(); }
    void removeWithGoal(Int goal_type);  ///< its men with such a goal, and those without any
    void removeMan(const cMan* man) { std::erase(m_upgrade_men, man); }
    /// Shown while men work on it; hidden by showEffect(false).
    void createUpgradeEffect(Engine::cControl* control);
    void showEffect(Bool show);

    const std::vector<std::unique_ptr<cUpgrade>>& getUpgrades() const { return m_upgrades; }
    Engine::cProgressFloat* getProgressBar() const { return m_progress; }  ///< null without one
    /// Is there nothing above its level? The last row of a table tells of the top itself.
    virtual Bool isAtTop() const { return m_level + 1 >= static_cast<Int>(m_upgrades.size()); }

    /// The goals that name it: they forget it when it ends.
    void addGoal(cGoal* goal) { m_goals.push_back(goal); }
    void removeGoal(const cGoal* goal) { std::erase(m_goals, goal); }
    void forgetGoals();

    /// The level, the least level and the goods brought so far.
    void saveBinState(Engine::iArch& arch);
    void loadBinState(Engine::iArch& arch);

protected:
    void closeOrder();  ///< what finishUpgrade() does for any unit
    static cTacticMap& getLevelMap();
    virtual std::unique_ptr<cUpgrade> makeUpgrade() const { return std::make_unique<cUpgrade>(); }
    /// The child tag "Upgrades": each of its children a row. Instead of what there was.
    void loadUpgrades(const Engine::iXML* xml);
    /// That child tag (cProgressFloatExt): a bar beside it while men work, a child of that view.
    void loadProgress(const Engine::iXML* xml, Engine::cView* owner, const char* tag = "Progress");
    void loadLevelKeys(const Engine::iXML* xml);  ///< "Level", "MinLevel"
    const cUpgrade* getUpgradeRow() const;        ///< of the present level; null at the top and without a table

    /// The whole of an order: its price flies up (as in flyPrice), its goods and its builders are sent for, the bar
    /// shows. Throws that text where there are not enough goods on the level.
    void orderUpgrade(const std::vector<cBuilding*>& providers, const Vector2& place, const Vector2& direction,
                      const char* lack_text);
    /// The same of its goods alone: an order of its own number, its price, what is sent for.
    void orderGoods(const std::vector<cBuilding*>& providers, const Vector2& place, const Vector2& direction,
                    const char* lack_text);
    void orderBuilders(Long transaction);  ///< as many as it needs
    void takeOrder(Long transaction);      ///< begins one of that number: no goods, no men done
    /// Orders so much from those stores, then from men on their way to one.
    /// Throws that text where there are not enough goods on the level.
    void sendFor(Int type, Int needed, const std::vector<cBuilding*>& providers, Long trans, const char* lack_text);
    /// Orders what it needs from those stores, then from men on their way to one. True if there is anything to bring.
    /// Throws that text where there are not enough goods on the level.
    Bool createDeliveryGoals(const std::vector<cBuilding*>& providers, const char* lack_text);
    virtual Int takeOwnGoods(Int, Int) { return 0; }  ///< of its own store, at once; gives the amount
    /// How numbers that fly up together stand: by turns to either side of their place, or all behind it.
    enum class eSpread { bothSides, behind };
    /// Goods fly up from that place of the screen, one number beside the other in that direction.
    /// @param sign  1: they have come; -1: they have gone
    static void flyGoods(const sResourceCargo& goods, Int sign, const Vector2& place, const Vector2& direction,
                         eSpread spread = eSpread::bothSides);
    void flyPrice(const Vector2& place, const Vector2& direction) const;  ///< which has gone
    /// One more builder is done. True for the last one.
    Bool countFinishedMan();
    /// Throws "cUpgradableUnit::createDeliveryGoalForBuilding(): needed amount < 0". Gives the amount ordered.
    Int createDeliveryGoalForBuilding(cBuilding* provider, Int type, Int amount, Long trans);
    Int createDeliveryGoalForMan(cFriendMan* man, Int type, Long trans);
    /// Throws "cUpgradableUnit::createDeliveryGoalsForLoadingMen(): needed amount < 0". Gives the amount not found.
    Int createDeliveryGoalsForLoadingMen(Int type, Long trans, Int amount);
    Long getOrder() const { return m_order; }

    std::vector<std::unique_ptr<cUpgrade>> m_upgrades;

private:
    Int grabFromMan(cFriendMan* man, Int type, Long trans, Int amount);

    Int m_state = idle;  ///< not saved: a loaded unit is idle
    Int m_level = 0;
    Int m_min_level = 0;                           ///< it is never degraded below
    std::vector<cMan*> m_upgrade_men;              ///< who works on it; not owned
    cCargoStorage m_upgrade_cargo;                 ///< what was brought so far
    Long m_order = -1;                             ///< the transaction of the last order
    Int m_finished_men = 0;                        ///< of the present order
    std::vector<cGoal*> m_goals;                   ///< that name it; not owned
    Engine::cProgressFloat* m_progress = nullptr;  ///< a child of the view that shows it; null without one
    cSimpleEffect* m_effect = nullptr;             ///< the same
};
