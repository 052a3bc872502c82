#pragma once

#include <memory>

#include "Game/GameLogic/Barrier.h"
#include "Game/GameUI/Tactic/PointInfo.h"

namespace Engine {
class cOverlayButton;
class cPicture;
}  // namespace Engine
class cFencePlan;
class cSimpleEffect;
class cWayPoint;

/// A fence of either side on an arc. Standing, it closes the arc and both its ends to the other side.
///
/// It is seen as tiles that stand upright side by side and lean along their line, with the foot of each in the middle
/// of its picture; a tower stands at an end where no other fence goes on, and the line stops short of a gate. While men
/// build it, its tiles rise out of the ground in dust.
class cFence : public cBarrier {
public:
    explicit cFence(Engine::cView* parent);
    ~cFence() override;

    /// The keys of cBarrier, then "default_building_time" (seconds), "disabled_color" (of a site that can't be
    /// ordered), "gate_gap" (what its line leaves free before a gate, units), and the child tags "TileFence",
    /// "TileFencePlace" (cOverlayButton each: one piece as wide as its size says) and "FenceTower" (cPicture).
    void loadXML(const Engine::iXML* xml) override;
    void setInitState() override;
    void updateView(Bool hide) override;
    void setStatePicture(Engine::eButtonState state) override;
    Bool pointInRect(const Vector2& point) const override;  ///< on one of its tiles
    Int findClosestPoint(const cMan& man, Int src) const override;
    void finishUpgrade() override;
    Bool degrade(Int amount) override;

    /// Its tiles begin to rise, to full height within those seconds, or the default time for 0 and less. Nothing if
    /// they do already.
    virtual void setGroundLevel(Float time);
    virtual void growingUp(Float dt);
    virtual void hoverTiles(Int state);  ///< an eButtonState
    virtual Float getDefaultBuildingTime() const { return m_default_building_time; }
    virtual void setDefaultBuildingTime(Float time) { m_default_building_time = time; }

    virtual void endWork();  ///< its order is over, for this piece alone; the map is not told
    Bool isGrowing() const { return m_growing; }
    Float getHeight() const { return m_height; }  ///< of the tiles at present, units
    Float getFullHeight() const;
    std::size_t getTileCount() const { return m_tiles.size(); }
    std::size_t getTowerCount() const { return m_towers.size(); }

protected:
    virtual Int getSiteArc() const = 0;
    virtual Int getStandingArc() const = 0;
    virtual void invalidateFences() = 0;                  ///< all of its side build their views anew
    virtual Bool looksDisabled() const { return false; }  ///< as a site

private:
    virtual Engine::cOverlayButton* createTile(const Vector2& place, const Engine::cOverlayButton& proto);
    virtual void createTower(Int end);
    virtual void create2DTiles(const Engine::cOverlayButton& proto);
    virtual void buildFencePlace();
    virtual void build();
    void lean(Engine::cOverlayButton& tile, Float width) const;
    void deleteTiles();
    void updateTiles();
    void updateWayPoints();
    void showDustEffect(Bool show);
    Int getGateKind(Int end) const;
    Float getGap(Int end) const;
    Float getDeepAt(const Vector2& place, const Engine::cControl& proto) const;

    // Children of this view
    Engine::cOverlayButton* m_tile_fence;
    Engine::cOverlayButton* m_tile_place;
    Engine::cPicture* m_fence_tower;
    std::vector<Engine::cOverlayButton*> m_tiles;
    std::vector<Engine::cPicture*> m_towers;
    std::vector<cSimpleEffect*> m_dust;

    Float m_height = 0.0f;                 ///< of the tiles, units
    Float m_growth_speed = 0.0f;           ///< units a second
    Float m_default_building_time = 1.0f;  ///< seconds
    Float m_gate_gap = 0.0f;               ///< units
    Bool m_growing = false;
    Bool m_shows_site = true;  ///< its tiles are those of a site
    DXColor m_disabled_color{1.0f, 1.0f, 1.0f, 1.0f};
};

/// A fence of the player's: it stops the enemy. A click on any site of a run orders the whole run.
class cPlayerFence : public cFence {
public:
    explicit cPlayerFence(Engine::cView* parent);
    ~cPlayerFence() override;

    /// The keys of cFence and the child tag "UpgradeTick" (cProgressFloatExt), which follows the men who work on it.
    void loadXML(const Engine::iXML* xml) override;
    Int getType() const override { return objectPlayerFence; }
    void updateView(Bool hide) override;
    void hovered() override;
    void unhovered() override;
    void clicked() override;
    Bool isPlayerConnected() const override;  ///< for a site: anything of its run
    void setViewBuilt(Bool built) override;
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip& info) override;

    Bool canBuildFence();
    /// Throws "cPlayerFence::createUpgradeGoals(): there are not enough resources on the level to build fence".
    Bool createUpgradeGoals() override;
    std::shared_ptr<cDeliveryGoal> getNewDeliveryGoal() override;
    std::shared_ptr<cGoal> getNewBuilderGoal() override;
    void upgrade() override;
    void finishUpgrade() override;  ///< of the whole run, if it is not built by then

protected:
    Int getSiteArc() const override { return ARC_PLAYER_FENCE_SITE; }
    Int getStandingArc() const override { return ARC_PLAYER_FENCE; }
    void invalidateFences() override;
    Bool looksDisabled() const override;

private:
    cFencePlan& getPlan();

    /// Its run, from when the pointer or updateView() first needs it until a fence rises or falls.
    std::unique_ptr<cFencePlan> m_fence_plan;
};

/// A fence of the enemy's: it stops the player. His men build it piece by piece.
class cEnemyFence : public cFence {
public:
    using cFence::cFence;

    Int getType() const override { return objectEnemyFence; }
    Bool isEnemy() const override { return true; }
    void upgrade() override;
    /// The player's roads that leave a point go, those in work too.
    void destroyPlayerRoads(Int src_p, const sPointInfo& info);

protected:
    Int getSiteArc() const override { return ARC_ENEMY_FENCE_SITE; }
    Int getStandingArc() const override { return ARC_ENEMY_FENCE; }
    void invalidateFences() override;
};
