#pragma once

#include "Game/Types.h"

/// On which side of a point something stands.
enum class eScreenSide : UInt { upLeft = 0, upRight = 1, downLeft = 2, downRight = 3 };

/// The side of a point on which the screen has more room. The exact middle counts as left and above.
eScreenSide getRoomySide(const Vector2& point);

/// The step towards a side: each part -1 or 1, y down.
Vector2 getSideDirection(eScreenSide side);
