#pragma once

#include "Game/CommonUI/PriceList.h"
#include "Game/GameLogic/ResourceCargo.h"

/// The price of a proposed road, which goes with the pointer. There is one pointer, and one list for all points.
class cRoadPrice : public cPriceList {
public:
    /// Sets itself up from the child tag "RoadPrice" of "GameLogic/WayPoint.xml".
    explicit cRoadPrice(Engine::cView* parent);

    void setPrice(const sResourceCargo& price, const sResourceCargo& stock);
    void moveTo(const Vector2& pointer);  ///< beside that place of the screen
};
