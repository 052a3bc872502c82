#pragma once

#include "Engine/graphics/image/Image.h"

/// What the picture formats' fuzz targets share.

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
