#pragma once

#include "Game/GameLogic/buildings/UpgradableBuilding.h"

/// A building that the player's hand puts on a way point.
///
/// At level 0 it is a proposal: translucent, on its point without being the point's building, so that the point stays
/// as it is for everything else. A click there orders it; it takes the point when it stands, and leaves it when it
/// falls.
class cPlacedBuilding : public cUpgradableBuilding {
public:
    using cUpgradableBuilding::cUpgradableBuilding;

    /// The keys of cUpgradableBuilding, then "alfa_param" (of a proposal) and "disabled_color" (of one that can't be
    /// ordered).
    void loadXML(const Engine::iXML* xml) override;
    void updateView(Bool hide) override;
    Bool isUpgradeAllowed() override;  ///< a proposal counts as connected
    void upgrade() override;
    void finishUpgrade() override;
    Bool degrade(Int amount) override;

    void propose(Int point);
    virtual void destroyPhantom();  ///< a proposal goes, without a trace
    /// May a proposal of the other kind share its point, to take it over?
    virtual Bool isReplaceable() const { return getUpgradeState() == idle; }

protected:
    /// Its way point lets go of it, which ends it. @param phantom  as a proposal
    virtual void leaveWayPoint(cWayPoint& way_point, Bool phantom) = 0;

private:
    Bool takeLeave(Bool phantom);
    void showProposal();

    Float m_proposal_alpha = 1.0f;
    DXColor m_built_color{1.0f, 1.0f, 1.0f, 1.0f};
    DXColor m_disabled_color{1.0f, 1.0f, 1.0f, 1.0f};
};
