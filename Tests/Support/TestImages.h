#pragma once

#include "Engine/graphics/image/Image.h"

/// Pictures made in code, and files of every format that the engine reads, written by the formats' own libraries
/// where there is one.
namespace TestImages {

using BYTES = std::vector<std::uint8_t>;

/// Every pixel different from its neighbours: red grows to the right, green downwards, alpha along the diagonal.
Engine::sImage makeGradient(Engine::UInt width, Engine::UInt height);

struct sPngKind {
    int bit_depth = 8;
    int color_type = 6;  ///< PNG_COLOR_TYPE_*
    bool interlaced = false;
};
/// @param rows  packed as the kind says, from the top
BYTES writePng(Engine::UInt width, Engine::UInt height, const sPngKind& kind, const std::vector<BYTES>& rows);

/// Makes a PNG claim another size, checksum included.
void setPngSize(BYTES& png, Engine::UInt width, Engine::UInt height);

/// The colours alone; grey files take the red of each pixel.
BYTES writeJpeg(const Engine::sImage& image, bool grey = false, bool progressive = false);

enum class eJngAlpha { none, png, jpeg };
BYTES writeJng(const Engine::sImage& image, eJngAlpha alpha);

struct sDdsFormat {
    Engine::UInt flags = 0x40;
    const char* four_cc = "\0\0\0\0";
    Engine::UInt bits = 0;
    Engine::UInt masks[4] = {};  ///< red, green, blue, alpha
};
BYTES writeDds(Engine::UInt width, Engine::UInt height, const sDdsFormat& format, const BYTES& data);

/// 32 bits a pixel, the first row at the bottom; packed: each row in runs of one pixel repeated.
BYTES writeTga(const Engine::sImage& image, bool packed = false);
/// 24 bits a pixel, the first row at the bottom.
BYTES writeBmp(const Engine::sImage& image);

}  // namespace TestImages
