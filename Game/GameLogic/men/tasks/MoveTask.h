#pragma once

#include "Engine/Ui/TaskDealer.h"
#include "Game/GameLogic/Movable.h"
#include "Game/GameUI/Tactic/PathSearch.h"
#include "Game/Types.h"

/// Moves one object in a straight line and turns it on the way.
///
/// The object outlives the task: it is the man, ship or cart whose dealer runs it. Distances are units, times seconds,
/// angles radians with the clock; places are on the screen. A derived class says where the line ends (getDstPosition)
/// and calls calcMovement() in onStart(). From then on each frame turns and moves the object until the time is used up.
class cMoveTask : public Engine::cTaskDealer::cTask {
public:
    /// @param index   place in the path of the point last left
    /// @param is_src  the walk leads to the goal's source, not to its destination
    cMoveTask(Engine::cTaskDealer* owner, iMovable* object, Int index, Bool is_src);

    Bool onProcess() override;

    virtual const Int& getPathIndex() const { return m_path_index; }
    virtual void setPathIndex(const Int& index) { m_path_index = index; }
    /// One frame's way; then the direction is taken anew, since the end may be moving. The time is not.
    virtual void moveForward(Float dt);
    virtual void getDstPosition(Vector2& out) const = 0;

    const PATH_HOLDER& getPath() const { return m_path; }
    void setPath(PATH_HOLDER path) { m_path = std::move(path); }
    Float getTimeLeft() const { return m_time_left; }
    const Vector2& getVelocity() const { return m_velocity; }

protected:
    static constexpr Float least_length = 0.0001f;  ///< units: a shorter line takes no time

    void setUpObjectSpeed(Int src, Int dst) { m_speed = m_object->getMovingSpeed(src, dst); }
    /// Sets time and velocity for a line at the present speed.
    void calcMovement(const Vector2& from, const Vector2& to);
    /// The turn takes as long as the turn distance at a speed; one of 0 or less counts as 1.
    void setTurnTime(Float speed);
    void turnToTarget();

    iMovable* m_object;  ///< not owned
    Int m_path_index;
    PATH_HOLDER m_path;
    Bool m_is_src;
    Bool m_finished = false;
    Float m_time_left = 0.0f;        ///< seconds of the line left
    Float m_move_time = 0.0f;        ///< seconds of the whole line
    Vector2 m_velocity{0.0f, 0.0f};  ///< units a second
    Float m_speed = 0.0f;            ///< units a second
    Vector2 m_dst_position{0.0f, 0.0f};
    Float m_start_yaw = 0.0f;
    Float m_target_yaw = 0.0f;  ///< what the turn leads to
    Float m_delta_yaw;
    Float m_turn_time = 0.0f;
    Float m_turn_time_left = 0.0f;
    Float m_turn_distance;
};
