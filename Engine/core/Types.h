#pragma once

#include <cstdint>
#include <glm/mat4x4.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>

/// The plain types at every interface of the program.
///
/// Widths are fixed, since files are written with them: Int, Long, UInt and ULong have 32 bits, LongLong 64.
/// Long and Int are the same type, so one overload serves both; likewise ULong and UInt.
namespace Engine {

using Bool = bool;
using Int = std::int32_t;
using UInt = std::uint32_t;
using Long = std::int32_t;
using ULong = std::uint32_t;
using LongLong = std::int64_t;
using ULongLong = std::uint64_t;
using Float = float;
using Double = double;

/// Points and distances in logical screen units (800 x 600, y down).
using Vector2 = glm::vec2;
using Vector3 = glm::vec3;

/// Formulas and files of this program use row vectors and rows in memory. The same sixteen floats read in order
/// into a glm::mat4 give the transpose, so a product of row vectors A x B is written B * A with this type.
using Matrix = glm::mat4;

/// A colour, each part from 0 to 1.
struct DXColor {
    Float r = 0.0f;
    Float g = 0.0f;
    Float b = 0.0f;
    Float a = 0.0f;

    friend Bool operator==(const DXColor&, const DXColor&) = default;
};

/// Packs to 0xAARRGGBB: each part is clamped to 0..1, scaled to 255 and rounded.
UInt toPackedColor(const DXColor& color);

}  // namespace Engine
