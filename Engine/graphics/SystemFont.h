#pragma once

#include <cstdint>

#include "Engine/core/Types.h"

/// The built-in font of the text overlay: printable ASCII in cells of one size, one bit a pixel.
namespace Engine::SystemFont {

inline constexpr char first_character = ' ';
inline constexpr UInt glyph_count = 95;
inline constexpr UInt glyph_width = 8;    ///< pixels
inline constexpr UInt glyph_height = 16;  ///< pixels

/// One byte a row from the top, the leftmost pixel in the highest bit.
extern const std::uint8_t glyphs[glyph_count][glyph_height];

}  // namespace Engine::SystemFont
