#pragma once

#include <cmath>

#include "Engine/core/Arch.h"
#include "Game/Types.h"

/// How level records hold what an archive alone does not settle, and the checks of what comes back out of them.

/// A Bool is a short of 0 or 1, read as true for anything but 0.
inline void serializeBool(Engine::iArch& arch, Bool& value) {
    short number = value ? 1 : 0;
    arch << number;
    value = number != 0;
}

/// A Float that is a number. Throws "a saved value is no number" for another one that was read.
inline void serializeNumber(Engine::iArch& arch, Float& value) {
    arch << value;
    if (arch.isReading() && !std::isfinite(value))
        throw String("a saved value is no number");
}

inline void serializeNumber(Engine::iArch& arch, Vector2& value) {
    serializeNumber(arch, value.x);
    serializeNumber(arch, value.y);
}

/// Reads the Int count of a list whose elements take so many bytes each at least.
/// Throws "<count> <what> can't be" for one that the rest of the archive can't hold.
inline Int readCount(Engine::iArch& arch, ULong least_size, const char* what) {
    Int count = 0;
    arch << count;
    const ULong left = arch.getSize() - static_cast<ULong>(arch.getPos());
    if (count < 0 || static_cast<ULong>(count) > left / least_size)
        throw String(std::to_string(count)).append(" ").append(what).append(" can't be");
    return count;
}
