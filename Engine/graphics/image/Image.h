#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// A picture in memory: rows from the top, 4 bytes a pixel: red, green, blue, alpha. Colours are not multiplied by
/// alpha.
struct sImage {
    UInt width = 0;
    UInt height = 0;
    std::vector<std::uint8_t> pixels;
};

struct sImageInfo {
    UInt width = 0;
    UInt height = 0;
};

/// No picture may be wider or higher than this; checked before anything is allocated for its pixels.
inline constexpr UInt max_image_side = 8192;

/// Decodes a PNG, JPEG, JNG, DDS, BMP or TGA file, told apart by its first bytes (TGA, which has no mark, by the
/// name's extension).
/// @param name  of the file, for errors and for TGA
/// Throws `Image "<name>": ` and what is wrong for anything that can't be decoded whole.
sImage decodeImage(const void* data, std::size_t size, const String& name);

/// The size alone, without decoding any pixel. Throws as decodeImage() does for a broken header.
sImageInfo readImageInfo(const void* data, std::size_t size, const String& name);

/// The picture as a PNG file of 8-bit RGBA. Throws `Image "<name>": ` and the library's message.
std::vector<std::uint8_t> encodePng(const sImage& image, const String& name);

}  // namespace Engine
