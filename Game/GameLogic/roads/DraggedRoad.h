#pragma once

#include "Game/GameLogic/roads/Road.h"

/// The road that hangs between a point and the pointer while it is dragged.
///
/// It ends nowhere on the graph: its far end is a place of the map.
class cDraggedRoad : public cRoad {
public:
    using cRoad::cRoad;

    Int getType() const override { return objectDraggedRoad; }
    Bool pointInRect(const Vector2&) const override { return false; }  ///< it is the pointer's own
    /// Lays the tiles anew.
    void updateView(Bool hide) override;
    void damage() override {}
    void destroyMe() override;

    void setConnectionPoint(Int p0, Int p1);  ///< from p0; p1 is of no account
    void setEnd(const Vector2& pos);          ///< a place of the screen

private:
    Vector2 m_start{0.0f, 0.0f};  ///< on the map
    Vector2 m_end{0.0f, 0.0f};    ///< on the map
};
