#pragma once

#include <vector>

#include "Game/GameLogic/SavedValue.h"
#include "Game/Types.h"

/// What the record of a level begins with: all of it that the map of levels asks for.
struct sLevelHead {
    Bool completed = false;
    std::vector<Int> marks;   ///< an eMark for each bridge, by their numbers; none for one that was not passed
    Int previous_level = -1;  ///< -1: there is none

    /// Throws "<count> bridges can't be" for a count that the rest of the archive can't hold.
    void serialize(Engine::iArch& arch) {
        serializeBool(arch, completed);
        Int count = static_cast<Int>(marks.size());
        if (arch.isReading())
            marks.resize(static_cast<std::size_t>(readCount(arch, sizeof(Int), "bridges")));
        else
            arch << count;
        for (Int& mark : marks)
            arch << mark;
        arch << previous_level;
    }
};
