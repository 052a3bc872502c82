#pragma once

#include <array>

#include "Game/Types.h"

/// What one award has come to. The fields stand in saves, in this order.
struct sAwardRecord {
    Int id = -1;       ///< the award's number
    Int check = 0;     ///< a word without a meaning
    Int obtained = 0;  ///< 1 once it was given
    Int shown = 0;     ///< 1 once it lies among the others
    Int data00 = 0;    ///< the count of what it is given for
    Int data01 = 0;    ///< the count that it is given at
};

/// What a player has come to that belongs to no level: his awards, and the hints that he has had.
struct sProgress {
    static constexpr std::size_t award_count = 16;
    static constexpr std::size_t hint_count = 61;
    static constexpr Int hint_done = 2;  ///< a hint that never comes again; 0 is one that has not come yet

    std::array<sAwardRecord, award_count> awards;  ///< by their numbers
    std::array<Int, hint_count> hints{};           ///< by their numbers

    sProgress() { reset(); }

    /// Nothing happens for a number that no hint has.
    void setHintDone(Int hint) {
        if (hint >= 0 && hint < static_cast<Int>(hint_count))
            hints[static_cast<std::size_t>(hint)] = hint_done;
    }

    /// That of a new player.
    void reset() {
        hints.fill(0);
        for (std::size_t i = 0; i < award_count; ++i)
            awards[i] = {.id = static_cast<Int>(i)};
    }
};
