#pragma once

#include <set>
#include <vector>

#include "Game/CommonUI/InfoTip.h"
#include "Game/GameLogic/ArcEnds.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/Target.h"
#include "Game/GameLogic/UpgradableUnit.h"

class cWayPoint;

/// What stands, or may stand, on an arc between two points: a fence or a bridge road. At level 0 it is a site, at level
/// 1 it stands.
///
/// The control itself is not seen: derived classes lay pieces along the arc, anew whenever the view is not built.
class cBarrier : public cLevelObject, public aTarget, public cUpgradableUnit, public iExtendedInfoTip, public cArcEnds {
public:
    explicit cBarrier(Engine::cView* parent);

    /// The keys of the level object, then "attack_icon_offset" and the child tag "Upgrades".
    void loadXML(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;  ///< the two end points
    void loadBinState(Engine::iArch& arch) override;
    void setInitState() override { hide(); }
    Bool isPlayerConnected() const override;  ///< the player's net reaches one of its ends

    using cLevelObject::getPosition;
    void getTargetPosition(Vector2& out, const Vector2& center, Float radius, Bool local) const override;
    void getPosition(Vector2& out, Bool local) const override;              ///< the middle between its ends
    void damage() override;                                                 ///< it falls by a level
    Bool inDamageArea(const Vector2& center, Float radius) const override;  ///< never of a site
    void updateInfoTipCargo(sInfoTip&) override {}
    void updateInfoTipPrice(sInfoTip& info) override;
    Int getUnderPoint() const override { return getP0(); }
    const sResourceCargo& getPrice() const override { return m_price; }
    void setPrice(const sResourceCargo& price) { m_price = price; }  ///< that of its arc
    void addMan(cMan* man) override;                                 ///< the bar follows him
    void upgrade() override;
    Bool degrade(Int amount) override;

    void setConnectionPoint(Int p0, Int p1);
    virtual Bool isViewBuilt() const { return m_view_built; }
    virtual void setViewBuilt(Bool built) { m_view_built = built; }  ///< the pieces are those of the present level

protected:
    /// The middles of the pieces that fill the line between its ends, on the screen; none without a line.
    /// @param width      of a piece, units
    /// @param first_gap  what is left free at p0, units
    /// @param last_gap   what is left free at p1, units
    std::vector<Vector2> layPieces(Float width, Float first_gap, Float last_gap) const;
    Vector2 getEndPos(Int end) const;  ///< of a point, on the screen
    Bool isOnScreen() const;           ///< its middle
    void setArc(Int type);             ///< of its arc, in both directions
    cWayPoint* getWayPoint() const;    ///< that of its first end; null without one
    /// Of those points the one that the man reaches first from src; -1 for none.
    Int findClosestOf(const std::set<Int>& points, const cMan& man, Int src) const;

    /// The child tag "UpgradeTick" (cProgressFloatExt): a bar beside the men who work on it.
    void loadWorkBar(const Engine::iXML* xml);

    // The player's hand, on a barrier of his
    void showPossible(Bool possible);  ///< whether it could be ordered now; that draws the eye when it begins
    void proposeRoad();                ///< shows the road that would lead to it, from the one in drag or from his net
    void processRoad();                ///< orders that road, to one that stands where nobody can get at it
    void tellOrder(sInfoTip& info) const;  ///< what a site costs, or that it is in work
    void tellRoad(sInfoTip& info) const;   ///< what the proposed road to a standing one costs

private:
    sResourceCargo m_price;
    Vector2 m_progress_offset{0.0f, 0.0f};  ///< of the bar from the point of the men
    Bool m_view_built = false;
};
