#pragma once

#include "Game/GameLogic/Observable.h"
#include "Game/GameLogic/men/tasks/MoveTask.h"
#include "Game/GameLogic/men/tasks/RingApproach.h"

namespace Engine {
class cControl;
}
class cArrangementUnit;
class cBuilding;
class cLevelObject;
class cMan;
class cWayPoint;
struct sPointInfo;

/// Walks a man over one arc of his path: first round the ring of the point that he leaves, then straight to the near
/// side of the next one's ring. At its end it makes the task of the next arc, or the man decides what to do.
///
/// It begins where the man is. One who was sent elsewhere on his way may be out on the arc already and goes on along
/// it, or out on another one and comes back to the ring first.
///
/// Two enemies who meet walk half a circle round each other meanwhile; a man who was pushed down stands still. Gates at
/// either end open before him and shut behind him. A path may begin with -1: the place where the man was when it was
/// made.
class cManWalkTask : public cMoveTask, public iListener {
public:
    cManWalkTask(cMan* man, Int index, Bool is_src);
    ~cManWalkTask() override;

    void onStart() override;
    Bool onProcess() override;
    void onEnd() override;
    void getDstPosition(Vector2& out) const override;

    virtual const Int& getSrc() const { return m_src; }
    virtual void setSrc(const Int& src) { m_src = src; }
    virtual const Int& getDst() const { return m_dst; }
    virtual void setDst(const Int& dst) { m_dst = dst; }
    virtual const Bool& isPassBy() const { return m_pass_by; }
    virtual const Bool& isPraying() const { return m_praying; }
    virtual const Bool& isOnEllipse() const { return m_on_ellipse; }
    virtual void setOnEllipse(const Bool& on_ellipse) { m_on_ellipse = on_ellipse; }
    virtual void prayIdol(Float) {}
    virtual void checkGates();

    /// Sets the walk over the arc from src to dst up.
    void calcStartConditions(Int src, Int dst);
    void recalcRoute();   ///< from where the man is now
    void validatePath();  ///< the rest of the path, after fences have changed
    /// The player's kick: drives the man away from the pointer along his line, not behind its start.
    void jump(const Vector2& mouse_pos);
    /// Half a circle round a point; places on the screen.
    void startPassBy(const Vector2& center);
    /// Where a point is on the screen: its building's middle, if it has one.
    static Vector2 getPointPosition(const cBuilding* building, const sPointInfo& point);
    /// Two men who have swapped their goals swap their walks.
    static void exchange(cManWalkTask& first, cManWalkTask& second, Bool same_point);

    // iListener: of the building that he walks to
    Int getListenerId() const override { return 0; }
    void onEvent(iEvent*) override {}
    void onObservedDestroyed() override { m_dst_building = nullptr; }

private:
    void stopListening();
    void findEnds();
    void turnBack();
    void takePath(PATH_HOLDER path, Int index, Int src, Int dst, Bool same_point);
    void setUpEllipse();
    Bool isOutOnArc() const;
    void setUpGates();
    void processEllipse(Float step);
    void processPassBy(Float step);
    void endPassBy();
    const cArrangementUnit* getSrcUnit() const;
    const cArrangementUnit* getDstUnit() const;

    cMan* m_man;               ///< not owned; outlives the task
    cRingApproach m_approach;  ///< to that ring
    Float m_ellipse_time_left = 0.0f;
    Bool m_on_ellipse = false;      ///< still on the ring of the point that he leaves
    Float m_ellipse_speed = 0.01f;  ///< radians a second
    cBuilding* m_src_building = nullptr;
    cBuilding* m_dst_building = nullptr;
    cWayPoint* m_src_point_object = nullptr;
    cWayPoint* m_dst_point_object = nullptr;
    Int m_src = -1;
    Int m_dst = -1;
    Bool m_pass_by = false;
    Engine::cControl* m_pass_by_center = nullptr;  ///< moves with the map; owned by the view tree
    Float m_pass_by_radius = 1.0f;
    Float m_pass_by_angle = 0.0f;
    Float m_pass_by_end_angle = 0.0f;
    Float m_pass_by_time_left = 0.0f;
    Float m_pass_by_speed = 0.0f;      ///< radians a second
    Float m_pass_by_direction = 0.0f;  ///< its sign
    Bool m_has_gates = false;
    Float m_src_gate_time = 0.0f;  ///< seconds until the gate behind him shuts
    Float m_dst_gate_time = 0.0f;  ///< the gate ahead opens when there is less time left
    Bool m_praying = false;
};
