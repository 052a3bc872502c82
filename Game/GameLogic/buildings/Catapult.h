#pragma once

#include "Game/GameLogic/buildings/PlacedBuilding.h"

class aTarget;

/// A row of a player's catapult's table of upgrades.
class cCatapultUpgrade : public cUpgrade {
public:
    /// The keys of cUpgrade, then "DamageRadius", "Height" (units), and the child tag "ChargeCargo".
    void loadXML(const Engine::iXML* xml) override;

    Float damage_radius = 0.0f;  ///< how far it throws, units
    Float height = 0.0f;         ///< of its arm, units
    sResourceCargo charge_cargo;
};

/// Stands on a way point and throws stones.
class cCatapult : public cPlacedBuilding {
public:
    explicit cCatapult(Engine::cView* parent);

    /// The keys of cPlacedBuilding and the child tag "DamageArea" (cPicture).
    void loadXML(const Engine::iXML* xml) override;
    void destroyMe() override;
    void destroyPhantom() override;
    Bool initUnderWayPoint(Int index) override;
    Int getUpgradePlanId(Int) const override { return -1; }

    virtual Float getDamageRadius() const { return 0.0f; }  ///< units on the map
    virtual void shot(aTarget* target);                     ///< aims at it
    virtual void hideDamageArea() {}
    aTarget* getTarget() const { return m_target; }

protected:
    void leaveWayPoint(cWayPoint& way_point, Bool phantom) override;
    Engine::cPicture& getDamageArea() { return *m_damage_area; }

private:
    Engine::cPicture* m_damage_area;  ///< a child of this view
    aTarget* m_target = nullptr;
};

/// Aimed by hand. While the pointer rests on it, it shows how far it throws and what it could hit.
class cPlayerCatapult : public cCatapult {
public:
    using cCatapult::cCatapult;
    Int getType() const override { return objectPlayerCatapult; }
    void hovered() override;
    void unhovered() override;
    Int getUpgradePlanId(Int level) const override { return level <= 3 ? getPlanInRow(31, level) : -1; }
    void upgrade() override;
    Float getDamageRadius() const override;

    void showDamageArea();
    void hideDamageArea() override;

protected:
    std::unique_ptr<cUpgrade> makeUpgrade() const override { return std::make_unique<cCatapultUpgrade>(); }
};

/// Shoots by a timer of its own at one target.
class cEnemyCatapult : public cCatapult {
public:
    using cCatapult::cCatapult;
    Int getType() const override { return objectEnemyCatapult; }
    void setInitState() override;
    void damage() override;  ///< one hit ends it
    Bool isReplaceable() const override { return false; }
    /// The keys of cUpgradableBuilding, then "start_time", "delay" (seconds), "repeat", "is_arc", "src_point",
    /// "dst_point".
    void loadXmlState(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;

private:
    void serialize(Engine::iArch& arch);

    Float m_clock = 0.0f;       ///< seconds of its level time
    Float m_start_time = 0.0f;  ///< seconds
    Float m_delay = 0.0f;       ///< seconds
    Bool m_repeat = false;
    Bool m_is_arc = false;  ///< the target is what stands on the arc, not on the point
    Int m_src_point = -1;
    Int m_dst_point = -1;
};
