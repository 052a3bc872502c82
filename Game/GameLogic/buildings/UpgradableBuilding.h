#pragma once

#include "Game/GameLogic/UpgradableUnit.h"
#include "Game/GameLogic/buildings/Building.h"

namespace Engine {
class cPicture;
}  // namespace Engine
class cUpgradeButton;

/// A building that rises by levels.
///
/// At level 0 it is a site, which a click orders; from level 1 on its upgrade button orders the next one.
class cUpgradableBuilding : public cBuilding, public cUpgradableUnit {
public:
    explicit cUpgradableBuilding(Engine::cView* parent);

    /// The keys of cBuilding, then the child tags "Upgrades", "Progress", "UpgradeButton", "UpgradeTick", "Bomb"
    /// and "BombProgress" (cPicture and cProgressFloat), whose places count from the building's.
    void loadXML(const Engine::iXML* xml) override;
    /// The keys of cBuilding, then "Level", "MinLevel".
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;
    /// Throws "cUpgradableBuilding::setInitState(): no level <level>" for one below 0 or above its table and 5.
    void setInitState() override;
    void process() override;
    void updateView(Bool hide) override;
    Bool pointInRect(const Vector2& point) const override;
    void damage() override;
    void clearWorkingMen() override { clearUpgradeMen(); }
    /// "wait_state_upgrade_" and the level.
    String getVisualStateName() const override;
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

    Int getUnderPoint() const override { return cBuilding::getUnderPoint(); }
    Bool isUpgradeAllowed() override;
    /// Throws "cUpgradableBuilding::createUpgradeGoals(): there are not enough resources on the level to upgrade unit".
    Bool createUpgradeGoals() override;
    void upgrade() override;
    Bool degrade(Int amount) override;
    /// Throws "cUpgradableBuilding::finishUpgrade(): set of working men is not cleared".
    void finishUpgrade() override;

    virtual Int getMenInside() const;
    /// The number of the shop's plan for that level; -1 if it needs none.
    virtual Int getUpgradePlanId(Int level) const = 0;
    virtual Bool upgradePlanWasBought() const;  ///< that for the next level, if it needs one

    /// @param pos  on the screen
    /// It goes off after so many seconds. Its bar is as far from it as the file's "BombProgress" is from "Bomb".
    void plantBomb(const Vector2& pos, Float time);
    void explodeBomb();
    Bool hasBomb() const { return m_has_bomb; }
    const Engine::cControl& getUpgradeButton() const;

protected:
    static constexpr Int highest_planned_level = 5;

    /// The first click on a site.
    void buildingClicked();
    void takeRowCapacity();  ///< its store is as large as the level says
    void dropExcess();       ///< what no longer fits into one that has fallen is gone
    Int takeOwnGoods(Int type, Int amount) override { return removeResourceItems(type, amount); }
    virtual void onBuildingClick() { buildingClicked(); }
    virtual void onUpgradeClick();
    virtual Bool isUpgradeOffered() const;  ///< by the upgrade button

    /// The plan of the first of five levels, for classes whose levels 1 to 5 have plans in a row.
    static Int getPlanInRow(Int first_plan, Int level) {
        return level >= 1 && level <= highest_planned_level ? first_plan + level - 1 : -1;
    }

private:
    void requireLevel() const;
    void loadUpgradeMask();
    void showUpgradeButton();
    void markUpgrade();
    void processBomb();

    // Children of this view
    cUpgradeButton* m_upgrade_button;
    Engine::cPicture* m_upgrade_tick;
    Engine::cPicture* m_bomb;
    Engine::cProgressFloat* m_bomb_progress;
    Vector2 m_bomb_bar_offset{0.0f, 0.0f};  ///< from the bomb, units
    Vector2 m_mask_offset{0.0f, 0.0f};      ///< of the hit mask, units
    Bool m_has_bomb = false;
    Float m_bomb_time = 0.0f;      ///< seconds
    Int m_wrong_clicks = 0;        ///< for want of a plan
    Bool m_upgrade_marked = true;  ///< the chance of this upgrade has yet to catch the eye
};
