#pragma once

#include "Game/GameLogic/roads/Road.h"

/// A stretch of road that is planned or being built.
class cTransRoad : public cRoad {
public:
    using cRoad::cRoad;

    Int getType() const override { return objectTransRoad; }
};

/// The road that hangs between a point and the pointer while it is dragged.
class cDraggedRoad : public cRoad {
public:
    using cRoad::cRoad;

    Int getType() const override { return objectDraggedRoad; }
};
