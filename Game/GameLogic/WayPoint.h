#pragma once

#include <memory>

#include "Engine/input/ControlCodes.h"
#include "Game/GameLogic/ArrangementUnit.h"
#include "Game/GameLogic/FieldObject.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/Target.h"

namespace Engine {
class cPicture;
}
class cCatapult;
class cIdol;
class cPlacedBuilding;
class cRoadPlan;
class cSimpleEffect;
struct sResourceCargo;

/// The node that the player sees at a point of the graph without a building.
///
/// How it looks comes from the graph at each update: which side's net it is on, and whether a gate stands in a line of
/// fences that passes it.
class cWayPoint : public cFieldObject<cLevelObject>, public aTarget, public cArrangementUnit {
public:
    /// @param parent  the map
    explicit cWayPoint(Engine::cView* parent);
    ~cWayPoint() override;

    /// The keys of the field object, then "center_offset", "arrangement_radius", "distance_to_gates" (units),
    /// "arrangement_delta" (radians), "attack_icon_offset", and the child tags "Back", "Gates", "EnemyGates" (cPicture
    /// each).
    void loadXML(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;
    void loadBinState(Engine::iArch& arch) override;
    void setInitState() override;
    void process() override;
    void updateView(Bool hide) override;
    void updateConnections() override;
    Int getType() const override { return objectWayPoint; }
    void hovered() override;
    void unhovered() override;
    void clicked() override;

    using cLevelObject::getPosition;
    void getPosition(Vector2& out, Bool local) const override;
    Bool inDamageArea(const Vector2&, Float) const override { return false; }
    /// Hits what stands here, and fences and roads that end here.
    void damage() override;

    void getEllipsePosition(Vector2& out, Float angle) const override;
    Float getRadius() const override { return m_arrangement_radius; }
    void getCenter(Vector2& out) const override;

    Int getIndex() const { return m_index; }
    void setIndex(Int index) { m_index = index; }

    /// Does a standing fence of either side end here? It closes its ends to the other side, not the arc alone.
    Bool isGateClosed(Bool player_fences, Bool enemy_fences) const;
    Bool isFree() const;  ///< no building stands here
    Bool hasRoadArc(Bool with_ground) const;
    /// How many arcs of that type leave the point; for one of them its direction, for two the direction half-way
    /// between them and half the angle between them. Radians.
    /// Throws "cWayPoint::getFencesInfo(): error in level design: there are more then two fence arcs in way point.".
    Int getFencesInfo(Int arc_type, Float& angle, Float& width) const;

    Bool canHaveIdol() const { return m_can_have_idol; }
    void setCanHaveIdol(Bool can) { m_can_have_idol = can; }
    Bool canHaveCatapult() const { return m_can_have_catapult; }
    void setCanHaveCatapult(Bool can) { m_can_have_catapult = can; }

    // An idol or a catapult, built or proposed. Each may be proposed where the other stands idle, and takes its place
    // when it is ordered.

    cIdol* getIdol() const { return m_idol; }
    void setIdol(cIdol* idol);
    void proposeIdol();            ///< if one may stand here now
    Bool hasProposedIdol() const;  ///< an idol of level 0, be it ordered
    void startIdolBuilding();
    /// False if there is none, or it stays: one with an order does, and one that stands unless any_level; nothing stays
    /// if forced.
    /// @param any_level  it falls as what stands does, else it goes as a proposal
    Bool deleteIdol(Bool any_level, Bool force);
    cCatapult* getCatapult() const { return m_catapult; }
    void setCatapult(cCatapult* catapult) { m_catapult = catapult; }
    void proposeCatapult();
    Bool hasProposedCatapult() const;
    void startCatapultBuilding();
    Bool deleteCatapult(Bool any_level, Bool force);

    virtual Bool isRoadInWork() const { return m_road_in_work; }
    virtual void setRoadInWork(Bool in_work) { m_road_in_work = in_work; }
    virtual Bool isFenceInWork() const { return m_fence_in_work; }
    virtual void setFenceInWork(Bool in_work) { m_fence_in_work = in_work; }
    virtual String getVisualStateName() const;
    virtual void updateVisualState();
    /// The back picture takes the look "<id>_base", if the object has one.
    virtual void setBackgroundVisualState(const String& id);

    // The road that may be ordered to this point: seen, with its price, while the pointer rests here.

    /// @param src  where it begins; -1: the nearest point of the player's net
    /// False where there is none.
    Bool proposeRoadPlan(Int src);
    void deleteRoadPlan();
    /// Orders it, or shows what is missing; nothing without one.
    void processRoadPlan();
    void updateRoadPlan();
    void updateRoadPlanPrice();
    void updateRoadPlanPrice(const sResourceCargo& price, const sResourceCargo& global);
    void updatePricePosition(const Vector2& pos);
    void showRoadPrice();
    void hideRoadPrice();
    const cRoadPlan* getRoadPlan() const { return m_road_plan.get(); }
    static void mouseMove(Engine::eControl, Long, cView* _this);
    /// The pointer has come to the point, or to the building that stands on it. False if no road can lead here.
    Bool pointerCame();
    void pointerLeft();

    // Gates: at kind 2 one stands here and opens for who passes.
    void openGates();
    void closeGates();  ///< leaves a running cycle alone: it shuts by itself
    /// Its gate begins to rise with a fence, to full height within those seconds.
    void setGroundLevel(Float time);
    void growingUp(Float dt);  ///< told by each piece of the fence
    Bool hasGates() const { return m_gate_kind == gate_stands; }
    Int getGateKind() const { return m_gate_kind; }
    Float getDistanceToGates() const { return m_distance_to_gates; }  ///< units

    static constexpr Int gate_stands = 2;  ///< the kind of a point in a line of fences

private:
    enum eGateState : Int { gateShut = 0, gateClosing = 2, gateOpening = 3 };

    Int countArcs(Int type) const;
    void updateGatesVisualState();
    void updateBridgesInfo();
    void updateInitialVisualState();
    void showGatePicture(Float angle);
    void showGateDust(Bool show);
    void moveGates();
    void setGateTime(Float time);
    Bool canPropose(Bool allowed, const cPlacedBuilding* same, const cPlacedBuilding* other) const;
    cPlacedBuilding* propose(Int type);
    void startBuilding(cPlacedBuilding& building);
    void letGo(cPlacedBuilding& building, Bool any_level);
    Bool isNodeSeen() const;
    Bool isPlanOutdated() const;
    void followPointerWithPrice();
    void followPointer(Bool follow);

    Int m_index = -1;
    Engine::cPicture* m_back_picture;  ///< a child of this view, as the gates are
    Engine::cPicture* m_gate_picture;
    Engine::cPicture* m_enemy_gate_picture;
    Vector2 m_center_offset{0.0f, 0.0f};  ///< the node's place from the point's
    Float m_arrangement_radius = 10.0f;   ///< of the men's ring, units
    cIdol* m_idol = nullptr;              ///< built or proposed; not owned
    cCatapult* m_catapult = nullptr;
    Bool m_can_have_idol = false;
    Bool m_can_have_catapult = false;
    Bool m_has_player_bridge = false;
    Bool m_has_enemy_bridge = false;
    Bool m_player_gates = false;  ///< whose gate it is
    Bool m_enemy_gates = false;
    Int m_gate_kind = 0;       ///< how many fence arcs meet here
    Float m_gate_time = 0.0f;  ///< half the gate's animation, seconds
    Int m_gate_state = gateShut;
    Float m_gate_timer = 0.0f;  ///< seconds left in the state
    Float m_distance_to_gates = 10.0f;
    Vector2 m_gate_size{40.0f, 20.0f};        ///< at full height, units
    Float m_gate_rise = 0.0f;                 ///< its height while it rises with a fence, units
    Float m_gate_rise_speed = 0.0f;           ///< units a second
    cSimpleEffect* m_build_effect = nullptr;  ///< dust at a gate that rises; a child of this view
    Bool m_road_in_work = false;
    Bool m_fence_in_work = false;
    std::unique_ptr<cRoadPlan> m_road_plan;
    Bool m_price_shown = false;      ///< the price is that of this point's plan
    Bool m_follows_pointer = false;  ///< mouseMove() is bound
};
