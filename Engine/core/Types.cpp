#include "Engine/core/Types.h"

#include <algorithm>
#include <cmath>

namespace Engine {

namespace {

UInt toByte(Float part) {
    return static_cast<UInt>(std::lround(std::clamp(part, 0.0f, 1.0f) * 255.0f));
}

}  // namespace

UInt toPackedColor(const DXColor& color) {
    return toByte(color.a) << 24 | toByte(color.r) << 16 | toByte(color.g) << 8 | toByte(color.b);
}

}  // namespace Engine
