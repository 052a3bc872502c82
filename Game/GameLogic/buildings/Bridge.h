#pragma once

#include "Game/GameLogic/buildings/BridgeClock.h"
#include "Game/GameLogic/buildings/BridgeWay.h"
#include "Game/GameLogic/buildings/UpgradableBuilding.h"

class cCaravan;

/// The way out of a level: repaired, then loaded with a caravan, which rolls off over it. Then the level is won, and a
/// click leads on to the next one.
///
/// Its clock (cBridgeClock) runs from the level's beginning until the caravan is loaded, and decides on the flag.
///
/// Its level is 0 while it is broken, 1 while the caravan waits to be loaded, 2 when that is done. Row 0 of its table
/// is the repair, row 1 the load.
class cBridge : public cUpgradableBuilding {
public:
    explicit cBridge(Engine::cView* parent);

    /// The keys of cUpgradableBuilding, then "speed" (of the caravan, units a second), "caravan_angle" (degrees),
    /// "screen_margin" (how far the bridge runs beyond the map, units), "cargo_tip_offset", "cargo_levels_amount" (of
    /// pictures of its goods), the child tags "Caravan" (cCaravan) and "Goods" (cPicture), and those of cBridgeClock
    /// and cBridgeWay.
    void loadXML(const Engine::iXML* xml) override;
    /// The keys of cUpgradableBuilding, then "BridgeNumber", "NextLevel", "Angle" (degrees), those of cBridgeClock and
    /// the child tag "Upgrades".
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;
    /// Throws "cBridge::setInitState(): no level <level>" for one that is none, and "... <n> rows of upgrades are too
    /// few" for less than two.
    void setInitState() override;
    void process() override;
    void updateView(Bool hide) override;
    Int getType() const override { return objectBridge; }
    Int getUpgradePlanId(Int) const override { return -1; }
    Bool isAtTop() const override { return getLevel() >= caravan_loaded; }
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

    /// Throws "cBridge::createUpgradeGoals - there are not enough men to start upgrade".
    Bool createUpgradeGoals() override;
    void addUpgradeResources(Int type, Int amount) override;
    void upgrade() override;
    void finishUpgrade() override;

    Int getBridgeNumber() const { return m_bridge_number; }
    void setBridgeNumber(Int number) { m_bridge_number = number; }
    Int getNextLevel() const { return m_next_level; }  ///< -1 after the last level
    Bool isPassed() const { return m_passed; }
    Float getElapsed() const { return m_clock.getElapsed(); }
    /// The flag held now, an eMark; with only_if_passed none before the caravan is loaded.
    Int getMark(Bool only_if_passed) const { return only_if_passed && !m_passed ? Int{markNone} : m_clock.getMark(); }
    /// Has it plans to wait for that a shop of the level offers, or the one that the last crossing takes?
    Bool hasMandatoryUpgrades() const;
    /// Wins the level and leaves it for the next one.
    /// Throws "cBridge::goNextLevel() - there are upgrade plans in shop".
    void goNextLevel();
    void showBridge(Bool show) { m_way.show(show); }
    void hoverBridge(Engine::eButtonState state) { m_way.hover(state); }
    const cCaravan& getCaravan() const { return *m_caravan; }

    void onSilverFlagBrought() { m_clock.onSilverFlagBrought(); }
    void onBlueFlagBrought() { m_clock.onBlueFlagBrought(); }
    /// Minutes and seconds, "04:05"; an hour shows as "00:00" again, and so does less than nothing.
    static WString getTime(Int seconds);

private:
    static constexpr Int caravan_waits = 1;  ///< levels
    static constexpr Int caravan_loaded = 2;

    static cBridge& getBridge(Engine::cView* view);
    static void onClick(Engine::cView* view);
    static void onLoadCaravan(Engine::cView* view);
    static void onGoClick(Engine::cView* view);
    Bool isUpgradeOffered() const override { return false; }
    void requireTable() const;
    void serialize(Engine::iArch& arch);
    Bool needsHarbourPlan() const;

    void layBridge();
    void showWayLook();
    void waitWithCaravan();
    void orderUpgradeByClick();
    void onLoaded();
    void startCaravan(Bool pulse);
    void onCaravanLeft();
    void enableBridge();
    void processCaravan(Float step, Float real_step);
    void processAwardEffects();
    void updateGoodsVisualState();
    void updatePulse();

    Int m_bridge_number = 0;
    Int m_next_level = -1;
    Float m_angle = 0.0f;         ///< of the way out, radians
    Bool m_passed = false;        ///< the caravan is loaded
    Bool m_closing = false;       ///< the caravan gets ready
    Float m_closing_time = 0.0f;  ///< seconds left of that
    Bool m_moving = false;        ///< the caravan rolls off
    Int m_effects_left = 0;       ///< that its trip is still to be celebrated with
    Int m_effects_done = 0;
    Float m_speed = 0.0f;          ///< of the caravan, units a second
    Float m_caravan_angle = 0.0f;  ///< its picture's, radians
    Float m_screen_margin = 0.0f;  ///< units
    Vector2 m_cargo_tip_offset{0.0f, 0.0f};
    Int m_cargo_levels_amount = 0;

    cBridgeWay m_way;
    // Children of this view
    cCaravan* m_caravan;
    Engine::cPicture* m_goods;
    cBridgeClock m_clock;
};
