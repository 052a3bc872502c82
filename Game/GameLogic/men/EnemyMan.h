#pragma once

#include "Game/GameLogic/men/Man.h"

/// A man of the enemy's.
class cEnemyMan : public cMan {
public:
    explicit cEnemyMan(Engine::cView* parent);

    /// The keys of cMan, then the child tag "Flag" (cPicture): what he carries from or to a bridge. Its looks are
    /// "silver_flag", "golden_flag" and "blue_flag" among his own.
    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    Int getType() const override { return objectEnemyMan; }
    Bool isBuildingRoad() const override { return false; }
    Bool canPushOff() const { return false; }

    /// He runs with the flag of that kind, an eMark; with none for markNone.
    /// Throws "Visual state for enemy flag is undefined!" for another number.
    void setWalkWithFlagVisualState(Int kind);

private:
    Engine::cPicture* m_flag;  ///< a child of this view
};
