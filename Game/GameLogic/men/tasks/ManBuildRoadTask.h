#pragma once

#include <memory>

#include "Engine/Ui/TaskDealer.h"
#include "Game/Types.h"

namespace Engine {
class cChannel;
}
class cArrangementUnit;
class cMan;
class cTransRoad;
class cUpgradableUnit;
class cWayPoint;

/// Walks a builder round the ring of a road's start and then along the road, which grows with him.
///
/// He ends at its far end, done or not.
class cManBuildRoadTask : public Engine::cTaskDealer::cTask {
public:
    /// @param unit  a stretch of road in work; it outlives the task, or ends its order first, which ends the task
    cManBuildRoadTask(cMan* man, cUpgradableUnit* unit);
    ~cManBuildRoadTask() override;

    /// Throws "cManBuildRoadTask::onStart(): can't build road to the same point" and "... src and dst points are too
    /// close".
    void onStart() override;
    Bool onProcess() override;
    void onEnd() override;

protected:
    virtual void startSound();
    virtual Float getActionSpeed() const;  ///< units a second
    virtual void startBuilding();
    virtual void processRoad();

    cMan* m_man;  ///< not owned; outlives the task
    std::unique_ptr<Engine::cChannel> m_sound;

private:
    void setUpEllipse();
    void setUpLine();
    void processEllipse(Float step);
    void turnTo(Float yaw);
    void markDst(Bool in_work);

    cUpgradableUnit* m_unit;
    cTransRoad* m_road;  ///< the same; null if it is another kind of unit
    Int m_src;           ///< the road's ends when he began
    Int m_dst;
    Float m_time_left = 0.0f;  ///< seconds along the road
    Float m_total_time = 0.0f;
    Bool m_aborted = false;          ///< the road was called off
    Vector2 m_velocity{0.0f, 0.0f};  ///< units a second
    const cArrangementUnit* m_src_unit = nullptr;
    const cArrangementUnit* m_dst_unit = nullptr;
    Float m_delta_yaw = 0.1f;     ///< radians a frame
    Float m_ellipse_time = 0.0f;  ///< seconds
    Bool m_on_ellipse = false;
    Float m_ellipse_speed = 0.01f;  ///< radians a second
    Float m_angle = 0.0f;           ///< on the ring
    Float m_road_yaw = 0.0f;
    Vector2 m_start_position{0.0f, 0.0f};  ///< on the map
    Vector2 m_road_start{0.0f, 0.0f};      ///< on the map
};
