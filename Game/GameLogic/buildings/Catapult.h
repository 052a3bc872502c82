#pragma once

#include "Game/GameLogic/buildings/UpgradableBuilding.h"

/// Stands on a way point and throws stones.
class cCatapult : public cUpgradableBuilding {
public:
    using cUpgradableBuilding::cUpgradableBuilding;

    Bool initUnderWayPoint(Int index) override;
    Int getUpgradePlanId(Int) const override { return -1; }
};

class cPlayerCatapult : public cCatapult {
public:
    using cCatapult::cCatapult;
    Int getType() const override { return objectPlayerCatapult; }
    Int getUpgradePlanId(Int level) const override { return level <= 3 ? getPlanInRow(31, level) : -1; }
};

/// Shoots by a timer of its own at one target.
class cEnemyCatapult : public cCatapult {
public:
    using cCatapult::cCatapult;
    Int getType() const override { return objectEnemyCatapult; }
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
