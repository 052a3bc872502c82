#pragma once

#include <map>
#include <memory>
#include <vector>

#include "Game/CommonUI/TicksHolder.h"
#include "Game/GameLogic/buildings/UpgradableBuilding.h"

namespace Engine {
class cChannel;
}

/// Makes goods of one kind out of men's work and keeps them until they are fetched.
///
/// A click hires as many men as its level; when the last of them is inside, a round begins. It takes the same time at
/// any number of men and gives one item for each, evenly spaced. The unload button sends men to carry the goods to a
/// store.
class cMill : public cUpgradableBuilding {
public:
    using cShakingButton = cScaleOscillator<Engine::cOverlayButton>;

    /// A row of a mill's table: it also says how long a round of work takes.
    class cMillUpgrade : public cUpgrade {
    public:
        /// The keys of cUpgrade, then "MiningTime".
        void loadXML(const Engine::iXML* xml) override;

        Float mining_time = 0.0f;  ///< seconds
    };

    enum eMillState : Int { millIdle = 0, workersHired = 1, mining = 2 };

    explicit cMill(Engine::cView* parent);
    ~cMill() override;

    /// The keys of cUpgradableBuilding, then "loading_bay_angle" (degrees), "cargo_levels_amount" (looks of the
    /// unload button beyond the empty one) and the child tags "UnloadButton", "UnloadTick", "MiningTick"
    /// (cTicksHolder), "MiningManProto", "MiningManTool" (the figure of a worker, and what he holds) and "MenOffsets":
    /// for each place inside an "id", its "offset" from the mill and the "angle" (degrees) that the figure is turned
    /// by.
    void loadXML(const Engine::iXML* xml) override;
    void loadXmlState(const Engine::iXML* xml) override;
    void setInitState() override;
    void process() override;
    void updateView(Bool hide) override;
    void onCargoChanged(Int type) override;
    void updateInfoTipCargo(sInfoTip& info) override;
    Int getType() const override { return objectMill; }
    Bool hasFreeSpace() const override { return getProductAmount() < getMillCapacity(); }
    Int removeResourceItems(Int type, Int amount) override;

    Int getNeededMen(Int goal_type) const override;
    void upgrade() override;
    void finishUpgrade() override;
    Bool degrade(Int amount) override;

    virtual Int getProduct() const = 0;  ///< eResource
    virtual Int getProductAmount() const { return getCargo()[getProduct()]; }
    virtual Float getLoadingBayAngle() const { return m_loading_bay_angle; }
    virtual void setLoadingBayAngle(Float angle) { m_loading_bay_angle = angle; }
    virtual void setMiningState() { m_mill_state = mining; }
    virtual Bool createMiningGoal();
    virtual Bool createUnloadGoals();
    virtual void startMiningSound();

    Int getMillState() const { return m_mill_state; }
    Bool isMining() const { return m_is_mining; }
    Float getMiningTime() const;
    Int getMillCapacity() const;
    /// Is that transaction the round that it has men for now?
    Bool isRound(Long transaction) const { return m_mill_state != millIdle && m_round == transaction; }
    Int getLoads() const { return m_loads; }
    void setLoads(Int loads);
    void incMiningMen(cMan* man);   ///< a worker has come
    void manWantsToStartWorking();  ///< he is at his place inside
    void startMining();
    /// Throws "cMill::finishMining(): set of working men is not cleared".
    void finishMining();
    void releaseWorkers();  ///< they come out, and are free
    void clearTask();       ///< the round is over
    void unload();
    void finishUnloading();
    void mineClicked();
    const Engine::cControl& getUnloadButton() const;

protected:
    void onBuildingClick() override { mineClicked(); }
    std::unique_ptr<cUpgrade> makeUpgrade() const override { return std::make_unique<cMillUpgrade>(); }

private:
    /// Where a worker stands inside, and how far he is turned from where the file's figure looks.
    struct sWorkplace {
        Vector2 offset{0.0f, 0.0f};  ///< from the mill, units
        Float turn = 0.0f;           ///< radians
    };

    Int countWorkers() const;
    sWorkplace findWorkplace(Int number) const;
    void showMiningProgress();
    void processMining(Float step);
    void makeItem();
    void shakeUnloadButton();
    void setUnloadButtonVisualState();
    void setMiningVisualState();
    void showWorker(Int number);

    Int m_mill_state = millIdle;
    Long m_round = -1;                 ///< the transaction of its last round
    Int m_loads = 0;                   ///< loads still to be fetched by men
    Int m_men_ready = 0;               ///< workers at their places
    Bool m_is_mining = false;          ///< a round is under way
    Float m_mining_elapsed = 0.0f;     ///< seconds of it
    Float m_product_step = 0.0f;       ///< seconds from item to item
    Float m_next_product_time = 0.0f;  ///< seconds of the round at which the next item is there
    std::unique_ptr<Engine::cChannel> m_mining_sound;
    Float m_loading_bay_angle = 0.0f;  ///< on the ring, radians
    Int m_cargo_levels_amount = 0;
    std::map<String, sWorkplace> m_men_offsets;
    Bool m_button_alarm = false;
    Float m_button_alarm_time = 0.0f;  ///< seconds

    // Children of this view
    cShakingButton* m_unload_button;
    Engine::cPicture* m_worker_proto;
    Engine::cPicture* m_tool_proto;
    std::vector<Engine::cPicture*> m_workers;  ///< one for each place inside that was ever taken
    std::vector<Engine::cPicture*> m_worker_tools;
    cTicksHolder m_unload_ticks;
    cTicksHolder m_mining_ticks;
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
