#pragma once

#include <zlib.h>

#include "Engine/graphics/image/Image.h"

/// What the picture formats' fuzz targets share.

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t max_size);

/// Decodes the bytes as a file of that name. Sizes over a million pixels are left to the tests: they only take time.
inline void fuzzImage(const std::uint8_t* data, std::size_t size, const Engine::String& name) {
    try {
        const Engine::sImageInfo info = Engine::readImageInfo(data, size, name);
        if (info.width * info.height > 1024 * 1024)
            return;
        const Engine::sImage image = Engine::decodeImage(data, size, name);
        if (image.pixels.size() != std::size_t{image.width} * image.height * 4)
            __builtin_trap();
    } catch (const Engine::String& text) {
        if (!text.starts_with("Image \"" + name + "\": "))
            __builtin_trap();
    }
}

/// Makes the checksums of a PNG's or JNG's chunks right again, so that changes reach what lies behind them.
inline void repairChecksums(std::uint8_t* data, std::size_t size) {
    std::size_t place = 8;
    while (place + 12 <= size) {
        std::uint8_t* chunk = data + place;
        const std::size_t length = std::size_t{chunk[0]} << 24 | std::size_t{chunk[1]} << 16 |
                                   std::size_t{chunk[2]} << 8 | std::size_t{chunk[3]};
        if (length > size - place - 12)
            return;
        const auto sum = static_cast<Engine::UInt>(crc32(0, chunk + 4, static_cast<uInt>(length + 4)));
        for (std::size_t i = 0; i < 4; ++i)
            chunk[8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        place += length + 12;
    }
}
