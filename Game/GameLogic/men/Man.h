#pragma once

#include <memory>

#include "Engine/Ui/TaskDealer.h"
#include "Game/GameLogic/FieldObject.h"
#include "Game/GameLogic/LevelObject.h"
#include "Game/GameLogic/Movable.h"
#include "Game/GameLogic/ResourceCargo.h"
#include "Game/GameLogic/goals/Goal.h"

namespace Engine {
class cPicture;
}
class cBuilding;
class cCargoStorage;
class cManWalkTask;
class cPriceList;
class cSimpleEffect;
class cUpgradableUnit;

/// Who walks the level. He stands at a way point, has one goal at most and one task at most.
///
/// The goal says what he is to achieve, the task what he does in this frame. When a walk is over he asks his goal what
/// comes next (makeDecision); all that he does flows from there. He may be pushed down meanwhile: then he lies, and
/// goes on where he was.
class cMan : public cFieldObject<cLevelObject>, public Engine::cTaskDealer, public iMovable {
public:
    explicit cMan(Engine::cView* parent);

    /// The keys of the field object (its "angle" is that of one who looks to the right), then "default_capacity",
    /// "delta_yaw" (radians), "turn_distance" (units), "speed_by_road" (units a second), "cross_country_speed",
    /// "speed_with_cargo", "walk_animation_speed" (factors), "kick_delta" (units), "exchange_goal_buf_time" (seconds),
    /// "acceleration_factor", "max_acceleration", and the child tags "StolenCargo" (cPriceList), "Tool" and "Shadow"
    /// (cPicture each).
    void loadXML(const Engine::iXML* xml) override;
    void saveBinState(Engine::iArch& arch) override;  ///< his point
    void loadBinState(Engine::iArch& arch) override;
    void setInitState() override;
    void process() override;
    void updateView(Bool hide) override;
    Bool isPlayerConnected() const override { return true; }  ///< he always looks as he is
    Bool pointInRect(const Vector2& point) const override;    ///< his upright body, however he is turned

    // What moves him
    const Vector2& getMovablePosition() const override { return getPosition(); }
    void setMovablePosition(const Vector2& position) override { setPosition(position); }
    Float getMovableYaw() const override { return getAngle() - m_yaw_offset; }
    void setMovableYaw(Float yaw) override { setAngle(yaw + m_yaw_offset); }
    const Float& getDeltaYaw() const override { return m_delta_yaw; }
    const Float& getTurnDistance() const override { return m_turn_distance; }
    /// speed_by_road, times cross_country_speed off roads, times speed_with_cargo with a load, times his own factor.
    Float getMovingSpeed(Int src, Int dst) override;

    virtual void waitTask(Bool rearrange);
    virtual void setWaitState();
    /// These send him there and are false if there is no way.
    virtual Bool walkTo(cUpgradableUnit* dst, Bool is_src);
    virtual Bool walkTo(cBuilding* dst, Bool is_src);
    virtual Bool walkTo(Int dest_point, Bool is_src);
    virtual Bool isWalking() const;
    virtual Bool isBuildingRoad() const;
    virtual const Int& getPoint() const { return m_point; }
    virtual void setPoint(const Int& point) { m_point = point; }
    virtual const Float& getDistance() const { return m_distance; }
    virtual void setDistance(const Float& distance) { m_distance = distance; }
    virtual void setGlobalGoal(cGoal* goal);
    virtual const Int& getCapacity() const { return m_capacity; }
    virtual void setCapacity(const Int& capacity) { m_capacity = capacity; }
    virtual const Float& getKickDelta() const { return m_kick_delta; }
    virtual const Float& getCrossCountrySpeed() const { return m_cross_country_speed; }
    virtual const Bool& isPushed() const { return m_pushed; }
    virtual void setPushed(const Bool& pushed) { m_pushed = pushed; }
    virtual const Float& getSpeedFactor() const { return m_speed_factor; }
    virtual void setSpeedFactor(const Float& factor) { m_speed_factor = factor; }
    virtual void makeDecision();  ///< he has arrived
    virtual void hideEffects();   ///< the dust of his work
    virtual void setWalkVisualState();
    virtual void startPushOff(Float) {}  ///< an enemy has run into him; seconds that he lies
    virtual void destroyMe();
    virtual const char* getCargoId() const;  ///< "money" ... "iron" of the first kind that he carries; or "no_cargo"
    virtual void setWaitVisualStates();
    virtual void upgrade(cUpgradableUnit* dst);  ///< he begins to work on it
    virtual void waitForUpgradingColleagues(cUpgradableUnit* dst);

    cGoal* getGlobalGoal() const { return m_goal.get(); }
    std::shared_ptr<cGoal> holdGlobalGoal() const { return m_goal; }  ///< to call what may end it
    void deleteGlobalGoal();
    Bool isFree() const { return !m_goal; }
    Bool isIdle() const { return !m_goal && !getTask(); }
    Bool isPraying() const { return m_is_praying; }
    void doFinalWork();  ///< of his goal, which may end by it
    void doFinalWorkOrWait(Bool rearrange);
    void leaveRing();
    void setInside(Bool inside);  ///< he works in a building, where nobody sees him
    Bool isInside() const { return m_inside; }
    void stopWork();  ///< whatever he does but walking; he stands where he is
    /// @param direction  that the road goes on in from him; its length is of no account
    void setBuildRoadVisualState(const Vector2& direction);
    void arrange();                     ///< he takes his place at his point, and comes back there if he must
    cManWalkTask* getWalkTask() const;  ///< null unless he walks
    void checkCurrentPath();            ///< after fences have changed
    void setNearWayPointPosition();     ///< at his place when the level begins
    /// Two who walk towards each other swap what they have to do, instead of passing.
    /// @param same_point  they leave one point in different directions
    void exchangeGoals(cMan* other, Bool same_point);
    static void onClick(Engine::cView* _button);  ///< the player's kick
    /// The point that he walks to if he walks, else his own.
    Int getPointAimedFor() const;

    const sResourceCargo& getCargo() const { return m_cargo; }
    void setCargo(const sResourceCargo& cargo) { m_cargo = cargo; }
    Int loadResourcesFrom(Int type, cCargoStorage* provider);  ///< gives the amount
    void unloadResourcesTo(Int type, cCargoStorage* dst);
    void unloadUpgradeResourcesTo(Int type, cUpgradableUnit* dst);
    Int getLockedResourcesFrom(Int type, cBuilding* src);  ///< gives the amount

protected:
    void animate(Float step) { setAnimTime(getAnimTime() + step); }
    void resetPace();  ///< neither hurried by exchanges nor slowed
    Bool isOnRoad() const { return m_on_road; }
    void setPushTime(Float time) { m_push_time = time; }
    void setWorkVisualState(const String& name);
    void updateTool(const String& state);  ///< shows it in that look; hides it if he has none of that name

private:
    Bool isRoadBetween(Int src, Int dst) const;
    Bool canExchange(const cMan* other) const;
    void accelerate();
    void makeBuildRoadEffect();
    void swapWalks(cMan& other, Bool same_point);

    Int m_point = -1;  ///< where he stands, or which he left last
    sResourceCargo m_cargo;
    std::shared_ptr<cGoal> m_goal;
    Int m_capacity = 1;  ///< how much he takes at once
    Int m_default_capacity = 0;
    Float m_distance = 0.0f;    ///< of the last sortMenByDistance(), units
    Float m_yaw_offset = 0.0f;  ///< the control's angle less his yaw, radians
    Float m_delta_yaw = 0.1f;
    Float m_turn_distance = 10.0f;
    Float m_speed_by_road = 10.0f;
    Float m_cross_country_speed = 1.0f;
    Float m_speed_with_cargo = 1.0f;
    Float m_walk_animation_speed = 1.0f;
    Float m_walk_anim_factor = 1.0f;  ///< of the last getMovingSpeed()
    Float m_kick_delta = 40.0f;
    cPriceList* m_stolen_cargo = nullptr;  ///< children of this view
    Engine::cPicture* m_tool;
    Engine::cPicture* m_shadow;
    cSimpleEffect* m_build_road_effect = nullptr;  ///< made when he first builds
    Vector2 m_build_road_offset{0.0f, 0.0f};       ///< of that, as its file says
    Float m_tool_angle = 0.0f;                     ///< its own beyond its bearer's, radians
    Bool m_is_praying = false;
    Bool m_inside = false;
    Bool m_pushed = false;     ///< he lies on the ground
    Float m_push_time = 0.0f;  ///< seconds left of it
    Bool m_on_road = false;
    Float m_exchange_goal_buf_time = 0.5f;
    Float m_exchange_timer = 0.0f;              ///< seconds until he may swap again
    const cMan* m_last_exchange_man = nullptr;  ///< only compared with
    Float m_speed_factor = 1.0f;                ///< grows with each exchange
    Float m_acceleration_factor = 2.0f;
    Float m_max_acceleration = 10.0f;
};

/// What traces call a man or a goal: the same in every run.
UInt getLogId(const cMan* man);
UInt getLogId(const cGoal* goal);
