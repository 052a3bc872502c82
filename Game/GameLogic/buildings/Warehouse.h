#pragma once

#include "Game/GameLogic/buildings/UpgradableBuilding.h"

/// Keeps goods. Money takes no room in it.
class cWarehouse : public cUpgradableBuilding {
public:
    explicit cWarehouse(Engine::cView* parent);

    /// The keys of cUpgradableBuilding, then "cargo_levels_amount" (looks of the goods) and the child tag "Goods"
    /// (cPicture), what is seen of them.
    void loadXML(const Engine::iXML* xml) override;
    void loadXmlState(const Engine::iXML* xml) override;
    void setInitState() override;
    void process() override;  ///< its goods pulse with it
    void updateView(Bool hide) override;
    Int getType() const override { return objectWarehouse; }
    Int getUpgradePlanId(Int level) const override { return getPlanInRow(21, level); }
    void upgrade() override;
    void finishUpgrade() override;
    Bool degrade(Int amount) override;
    Int addResourceItems(Int type, Int amount) override;
    Int removeResourceItems(Int type, Int amount) override;
    Bool hasFreeSpace() const override;
    void onCargoChanged(Int type) override;

    /// What does not fit is gone: one item each of food, wood, stone and iron in turn.
    void adjustResourcesToCapacity();
    void updateGoodsVisualState();

private:
    Engine::cPicture* m_goods;  ///< a child of this view
    Int m_cargo_levels_amount = 0;
};
