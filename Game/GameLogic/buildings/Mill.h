#pragma once

#include "Game/GameLogic/buildings/UpgradableBuilding.h"

/// Makes goods of one kind out of men's work and keeps them until they are fetched.
class cMill : public cUpgradableBuilding {
public:
    /// A row of a mill's table: it also says how long a round of work takes.
    class cMillUpgrade : public cUpgrade {
    public:
        /// The keys of cUpgrade, then "MiningTime".
        void loadXML(const Engine::iXML* xml) override;

        Float mining_time = 0.0f;  ///< seconds
    };

    using cUpgradableBuilding::cUpgradableBuilding;

    /// The keys of cUpgradableBuilding, then "loading_bay_angle" (degrees).
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectMill; }

    virtual Int getProduct() const = 0;  ///< eResource
    virtual Int getProductAmount() const { return getCargo()[getProduct()]; }
    virtual Float getLoadingBayAngle() const { return m_loading_bay_angle; }
    virtual void setLoadingBayAngle(Float angle) { m_loading_bay_angle = angle; }

    virtual void manWantsToStartWorking() {}  ///< a worker has come to his place inside
    Int getLoads() const { return m_loads; }
    void setLoads(Int loads) { m_loads = loads; }

protected:
    std::unique_ptr<cUpgrade> makeUpgrade() const override { return std::make_unique<cMillUpgrade>(); }

private:
    Float m_loading_bay_angle = 0.0f;  ///< on the ring, radians
    Int m_loads = 0;                   ///< loads still to be fetched by men
};

class cStoneMill : public cMill {
public:
    using cMill::cMill;
    Int getType() const override { return objectStoneMill; }
    Int getProduct() const override { return resourceStone; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(1, level); }
};

class cIronMill : public cMill {
public:
    using cMill::cMill;
    Int getType() const override { return objectIronMill; }
    Int getProduct() const override { return resourceIron; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(6, level); }
};

class cWoodMill : public cMill {
public:
    using cMill::cMill;
    Int getType() const override { return objectWoodMill; }
    Int getProduct() const override { return resourceWood; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(11, level); }
};

class cFoodMill : public cMill {
public:
    using cMill::cMill;
    Int getType() const override { return objectFoodMill; }
    Int getProduct() const override { return resourceFood; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(16, level); }
};
