#pragma once

#include <memory>

#include "Game/GameLogic/Barrier.h"
#include "Game/GameUI/Tactic/PointInfo.h"

namespace Engine {
class cOverlayButton;
}
class cBridgesPlan;

/// A bridge over water on one arc; without it nobody passes there.
///
/// It is seen as pieces along the arc, turned with it, and an end at each shore: those of a site or those of the
/// standing bridge.
class cBridgeRoad : public cBarrier {
public:
    explicit cBridgeRoad(Engine::cView* parent);

    /// The keys of cBarrier, then "damaged_tile_length" (units between the pieces of a site) and the child tags
    /// "TileBridgePlace" and "TileBridge" (the pieces), "LeftBridge" and "RightBridge" (the ends of one that stands),
    /// "LeftBridgeDamaged" and "RightBridgeDamaged" (those of a site), all of them cOverlayButton.
    void loadXML(const Engine::iXML* xml) override;
    void updateView(Bool hide) override;
    Bool pointInRect(const Vector2& point) const override;  ///< near its line
    Int findClosestPoint(const cMan& man, Int src) const override;
    void finishUpgrade() override;
    Bool degrade(Int amount) override;

    virtual void endWork();               ///< its order is over; the map is not told
    virtual void hoverPieces(Int state);  ///< an eButtonState

protected:
    virtual Int getSiteArc() const = 0;

private:
    virtual void build();
    virtual void createTile(const Engine::cOverlayButton& proto, const Vector2& place, Float angle);
    void closeGaps(Float distance);
    void createEnds(Float angle, Bool is_turned);

    // Children of this view
    Engine::cOverlayButton* m_tile_place;
    Engine::cOverlayButton* m_tile;
    Engine::cOverlayButton* m_left;
    Engine::cOverlayButton* m_right;
    Engine::cOverlayButton* m_left_damaged;
    Engine::cOverlayButton* m_right_damaged;
    std::vector<Engine::cOverlayButton*> m_pieces;

    Float m_damaged_tile_length = 0.0f;  ///< units; 0: the width of a piece
};

/// A bridge of the player's. A click on any site of a run orders the whole run.
class cPlayerBridgeRoad : public cBridgeRoad {
public:
    using cBridgeRoad::cBridgeRoad;

    /// The keys of cBridgeRoad and the child tag "UpgradeTick" (cProgressFloatExt), which follows the men who work on
    /// it.
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectPlayerBridgeRoad; }
    void updateView(Bool hide) override;
    void hovered() override;
    void unhovered() override;
    void clicked() override;
    Bool isPlayerConnected() const override;  ///< for a site: anything of its run
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

    Int getUnderPoint() const override;  ///< its end that the player's net reaches, the first one rather; -1 for none
    Bool isUpgradeAllowed() override;
    /// Throws "cPlayerBridgeRoad::createUpgradeGoals(): there are not enough resources on the level to build bridge".
    Bool createUpgradeGoals() override;
    std::shared_ptr<cDeliveryGoal> getNewDeliveryGoal() override;
    std::shared_ptr<cGoal> getNewBuilderGoal() override;
    void upgrade() override;

protected:
    Int getSiteArc() const override { return ARC_PLAYER_BRIDGE_SITE; }
};

/// A bridge of the enemy's.
class cEnemyBridgeRoad : public cBridgeRoad {
public:
    using cBridgeRoad::cBridgeRoad;

    Int getType() const override { return objectEnemyBridgeRoad; }
    Bool isEnemy() const override { return true; }
    void upgrade() override;

protected:
    Int getSiteArc() const override { return ARC_ENEMY_BRIDGE_SITE; }
};
