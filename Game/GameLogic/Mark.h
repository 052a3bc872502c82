#pragma once

#include "Game/Types.h"

/// The flag of a level. The numbers stand in saves; their order is not that of worth.
enum eMark : Int { markNone = 0, markSilver = 1, markGold = 2, markBlue = 3 };

/// Gold above silver above blue above none.
constexpr Int getWorth(Int mark) {
    switch (mark) {
        case markGold:
            return 3;
        case markSilver:
            return 2;
        case markBlue:
            return 1;
        default:
            return 0;
    }
}
