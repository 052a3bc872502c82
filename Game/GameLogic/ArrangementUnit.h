#pragma once

#include <vector>

#include "Game/Types.h"

class cMan;

/// The men who stand in a ring round a point, in the order in which they came.
///
/// The first has his place where he happens to stand, each further one a step further round. Places are on the screen,
/// angles radians with the clock.
class cArrangementUnit {
public:
    virtual ~cArrangementUnit() = default;

    virtual void getEllipsePosition(Vector2& out, Float) const { out = {0.0f, 0.0f}; }
    virtual Float getRadius() const { return 10.0f; }                      ///< units
    virtual void getCenter(Vector2& out) const { out = {0.0f, 0.0f}; }     ///< on the map
    virtual const Float& getDelta() const { return m_arrangement_delta; }  ///< between two men
    virtual void setDelta(const Float& delta) { m_arrangement_delta = delta; }
    virtual void turnOutwards(cMan* man) const;                ///< from the round of his walk to the middle
    virtual Bool hasEllipse() const { return m_has_ellipse; }  ///< is there room to walk round?

    /// In which direction from the middle a place lies, 0 to 2 pi; 0 for the middle itself.
    Float getDirection(const Vector2& man_pos) const;
    /// The man has arrived: alone he begins his work, or waits; among others he walks round to his place first. One who
    /// is here already goes on with his work.
    void add(cMan* man);
    void remove(const cMan* man);
    /// What stands at the point has changed: those who stand here go to that, those at work when they are done.
    void handOver();

    const std::vector<cMan*>& getRing() const { return m_ring; }

private:
    void arrange(cMan* man);

    std::vector<cMan*> m_ring;  ///< not owned
    Float m_arrangement_delta = 12.0f;
    Bool m_has_ellipse = true;
};
