#pragma once

#include "Engine/Ui/TaskDealer.h"
#include "Game/GameLogic/men/tasks/RingApproach.h"
#include "Game/Types.h"

class cGoal;
class cMan;

/// Walks a man round the ring of his point to his place in it.
class cManWalkByEllipseTask : public Engine::cTaskDealer::cTask {
public:
    /// @param target_angle   of his place, radians with the clock
    /// @param face_outwards  there he turns out of the round, to the middle
    cManWalkByEllipseTask(cMan* man, Float target_angle, Bool face_outwards);

    void onStart() override;
    Bool onProcess() override;
    void onEnd() override;

protected:
    cMan* m_man;  ///< not owned; outlives the task

private:
    Int m_point;
    Bool m_face_outwards;
    cRingApproach m_approach;
    Float m_time_left = 0.0f;  ///< seconds of the walk round
    Float m_angle = 0.0f;
    Float m_target_angle;
    Float m_angular_speed = 0.0f;  ///< radians a second
};

/// Brings a man who was called back on his way to the ring of the point that he left, where he takes his place.
class cManReturnTask : public cManWalkByEllipseTask {
public:
    /// @param angle  of the ring's side that is near to him
    cManReturnTask(cMan* man, Float angle) : cManWalkByEllipseTask(man, angle, false) {}

    void onEnd() override;
};

/// The same walk to the loading bay of a building, where a load is taken.
class cManWalkToLoadingBay : public cManWalkByEllipseTask {
public:
    cManWalkToLoadingBay(cMan* man, Float target_angle) : cManWalkByEllipseTask(man, target_angle, false) {}

    void onEnd() override;

private:
    void takeLoad(cGoal& goal);
};
