#include <algorithm>
#include <cstdlib>
#include <memory>

#include "Engine/graphics/image/ImageReaders.h"

// The library sits in this file alone, cut down to the two formats that have no library of their own.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_BMP
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_HDR
#define STBI_FAILURE_USERMSG
#define STBI_MAX_DIMENSIONS 8192
#include <stb/stb_image.h>

namespace Engine::ImageReaders {

static_assert(STBI_MAX_DIMENSIONS == max_image_side);

namespace {

constexpr std::size_t max_file_size = 1u << 30;

/// The library's view of the file's size; it counts with int.
int getLength(const sSource& source) {
    if (source.size > max_file_size)
        fail(source, "the file is too large");
    return static_cast<int>(source.size);
}

[[noreturn]] void failByLibrary(const sSource& source) {
    const char* reason = stbi_failure_reason();
    fail(source, reason ? reason : "can't be decoded");
}

sImageInfo readInfo(const sSource& source) {
    int width = 0;
    int height = 0;
    int components = 0;
    if (!stbi_info_from_memory(source.data, getLength(source), &width, &height, &components))
        failByLibrary(source);
    if (width < 0 || height < 0)
        fail(source, "the header is damaged");
    requireSize(source, static_cast<UInt>(width), static_cast<UInt>(height));
    return {static_cast<UInt>(width), static_cast<UInt>(height)};
}

sImage decode(const sSource& source) {
    const sImageInfo info = readInfo(source);
    int width = 0;
    int height = 0;
    int components = 0;
    const std::unique_ptr<stbi_uc, decltype(&std::free)> pixels(
        stbi_load_from_memory(source.data, getLength(source), &width, &height, &components, STBI_rgb_alpha),
        &std::free);
    if (!pixels)
        failByLibrary(source);
    if (static_cast<UInt>(width) != info.width || static_cast<UInt>(height) != info.height)
        fail(source, "the header is damaged");
    const std::size_t size = std::size_t{info.width} * info.height * 4;
    return {info.width, info.height, {pixels.get(), pixels.get() + size}};
}

// The library reads zeros behind the end of a file, so a cut one is noticed here.

void requireBmpPixels(const sSource& source, const sImageInfo& info) {
    requireBytes(source, 0, 26);
    const Bool old_header = littleEndian32(source.data + 14) == 12;
    requireBytes(source, 0, old_header ? 26 : 34);
    const UInt bits = littleEndian16(source.data + (old_header ? 24 : 28));
    const std::uint64_t row = (std::uint64_t{info.width} * bits + 31) / 32 * 4;
    requireBytes(source, littleEndian32(source.data + 10), row * info.height);
}

/// Walks over the packets of a packed TGA up to its last pixel.
void requireTgaPackets(const sSource& source, std::size_t place, std::uint64_t pixels, std::size_t pixel_size) {
    while (pixels > 0) {
        requireBytes(source, place, 1);
        const UInt head = source.data[place++];
        const UInt count = (head & 0x7F) + 1;
        const std::size_t size = (head & 0x80) ? pixel_size : pixel_size * count;
        requireBytes(source, place, size);
        place += size;
        pixels -= std::min<std::uint64_t>(pixels, count);
    }
}

void requireTgaPixels(const sSource& source, const sImageInfo& info) {
    constexpr std::size_t head_size = 18;
    requireBytes(source, 0, head_size);
    const std::uint8_t* head = source.data;
    // The library takes the palette's first index for bytes to skip.
    const std::size_t palette =
        head[1] ? littleEndian16(head + 3) + std::size_t{littleEndian16(head + 5)} * ((std::size_t{head[7]} + 7) / 8)
                : 0;
    const std::size_t place = head_size + head[0] + palette;
    const std::size_t pixel_size = (std::size_t{head[16]} + 7) / 8;
    const std::uint64_t pixels = std::uint64_t{info.width} * info.height;
    constexpr UInt packed = 8;
    if (head[2] & packed)
        requireTgaPackets(source, place, pixels, pixel_size);
    else
        requireBytes(source, place, pixels * pixel_size);
}

}  // namespace

sImage decodeBmp(const sSource& source) {
    requireBmpPixels(source, readInfo(source));
    return decode(source);
}

sImageInfo readBmpInfo(const sSource& source) {
    return readInfo(source);
}

sImage decodeTga(const sSource& source) {
    requireTgaPixels(source, readInfo(source));
    return decode(source);
}

sImageInfo readTgaInfo(const sSource& source) {
    return readInfo(source);
}

}  // namespace Engine::ImageReaders
