#include <algorithm>
#include <array>
#include <bit>

#include "Engine/graphics/image/ImageReaders.h"

namespace Engine::ImageReaders {

namespace {

constexpr std::size_t header_size = 128;  ///< with the four bytes of the mark
constexpr UInt has_alpha = 0x1;
constexpr UInt has_four_cc = 0x4;
constexpr UInt has_rgb = 0x40;
constexpr UInt not_flat = 0x200 | 0x200000;  ///< of the second capabilities: cube maps and volumes

constexpr UInt fourCC(const char (&text)[5]) {
    return static_cast<UInt>(text[0]) | static_cast<UInt>(text[1]) << 8 | static_cast<UInt>(text[2]) << 16 |
           static_cast<UInt>(text[3]) << 24;
}

struct sHeader {
    UInt width = 0;
    UInt height = 0;
    UInt format = 0;     ///< flags of the pixel format
    UInt four_cc = 0;    ///< of a compressed one
    UInt bits = 0;       ///< a pixel, of an uncompressed one
    UInt masks[4] = {};  ///< red, green, blue, alpha
};

sHeader readHeader(const sSource& source) {
    requireBytes(source, 0, header_size);
    const auto field = [&source](std::size_t offset) { return littleEndian32(source.data + offset); };
    if (field(4) != 124 || field(76) != 32)
        fail(source, "the header is damaged");
    requireSize(source, field(16), field(12));
    if (field(112) & not_flat)
        fail(source, "cube maps and volumes are not supported");
    const UInt format = field(80);
    return {.width = field(16),
            .height = field(12),
            .format = format,
            .four_cc = field(84),
            .bits = field(88),
            .masks = {field(92), field(96), field(100), (format & has_alpha) ? field(104) : 0}};
}

using COLOR = std::array<std::uint8_t, 4>;  ///< red, green, blue, alpha

COLOR unpack565(UInt value) {
    const UInt r = value >> 11;
    const UInt g = value >> 5 & 0x3F;
    const UInt b = value & 0x1F;
    return {static_cast<std::uint8_t>(r << 3 | r >> 2), static_cast<std::uint8_t>(g << 2 | g >> 4),
            static_cast<std::uint8_t>(b << 3 | b >> 2), 255};
}

/// (wa x a + wb x b) / (wa + wb), component by component.
COLOR mix(const COLOR& a, UInt wa, const COLOR& b, UInt wb) {
    COLOR res;
    for (std::size_t i = 0; i < res.size(); ++i)
        res[i] = static_cast<std::uint8_t>((wa * a[i] + wb * b[i]) / (wa + wb));
    return res;
}

/// The sixteen colours of a block of 8 bytes: two ends, then two bits a pixel.
/// @param with_hole  a first end not above the second means three colours and a transparent one (DXT1 alone)
void readColors(const std::uint8_t* block, Bool with_hole, COLOR (&res)[16]) {
    const UInt end0 = littleEndian16(block);
    const UInt end1 = littleEndian16(block + 2);
    COLOR palette[4] = {unpack565(end0), unpack565(end1), {}, {}};
    if (with_hole && end0 <= end1) {
        palette[2] = mix(palette[0], 1, palette[1], 1);
        palette[3] = {0, 0, 0, 0};
    } else {
        palette[2] = mix(palette[0], 2, palette[1], 1);
        palette[3] = mix(palette[0], 1, palette[1], 2);
    }
    const UInt places = littleEndian32(block + 4);
    for (UInt i = 0; i < 16; ++i)
        res[i] = palette[places >> (2 * i) & 3];
}

/// Four bits of alpha a pixel.
void readPlainAlpha(const std::uint8_t* block, COLOR (&res)[16]) {
    for (std::size_t i = 0; i < 16; ++i)
        res[i][3] = static_cast<std::uint8_t>((block[i / 2] >> (i % 2 * 4) & 0xF) * 17);
}

/// Two ends of alpha, then three bits a pixel.
void readMixedAlpha(const std::uint8_t* block, COLOR (&res)[16]) {
    const UInt end0 = block[0];
    const UInt end1 = block[1];
    const UInt steps = end0 > end1 ? 7 : 5;  // with five steps the last two places are 0 and 255
    UInt palette[8] = {end0, end1, 0, 0, 0, 0, 0, 255};
    for (UInt i = 1; i < steps; ++i)
        palette[i + 1] = ((steps - i) * end0 + i * end1) / steps;
    const std::uint64_t places = littleEndian16(block + 2) | std::uint64_t{littleEndian32(block + 4)} << 16;
    for (std::size_t i = 0; i < 16; ++i)
        res[i][3] = static_cast<std::uint8_t>(palette[places >> (3 * i) & 7]);
}

void readBlock(UInt four_cc, const std::uint8_t* block, COLOR (&res)[16]) {
    if (four_cc == fourCC("DXT1"))
        return readColors(block, true, res);
    readColors(block + 8, false, res);
    if (four_cc == fourCC("DXT3"))
        readPlainAlpha(block, res);
    else
        readMixedAlpha(block, res);
}

/// Copies what lies inside the picture of the block whose first pixel is at (x0, y0).
void storeBlock(const COLOR (&colors)[16], UInt x0, UInt y0, sImage& image) {
    const UInt columns = std::min(4u, image.width - x0);
    const UInt rows = std::min(4u, image.height - y0);
    for (UInt y = 0; y < rows; ++y) {
        std::uint8_t* target = &image.pixels[(std::size_t{y0 + y} * image.width + x0) * 4];
        for (UInt x = 0; x < columns; ++x)
            target = std::copy(colors[y * 4 + x].begin(), colors[y * 4 + x].end(), target);
    }
}

void decodeBlocks(const sSource& source, const sHeader& header, sImage& image) {
    const std::size_t block_size = header.four_cc == fourCC("DXT1") ? 8 : 16;
    const std::uint8_t* block = source.data + header_size;
    for (UInt y = 0; y < header.height; y += 4) {
        for (UInt x = 0; x < header.width; x += 4, block += block_size) {
            COLOR colors[16];
            readBlock(header.four_cc, block, colors);
            storeBlock(colors, x, y, image);
        }
    }
}

/// One component of an uncompressed pixel, brought to 8 bits.
struct sComponent {
    explicit sComponent(UInt pixel_mask)
        : mask(pixel_mask), shift(pixel_mask ? std::countr_zero(pixel_mask) : 0), highest(pixel_mask >> shift) {}

    std::uint8_t get(UInt pixel, std::uint8_t absent) const {
        if (mask == 0)
            return absent;
        return static_cast<std::uint8_t>((std::uint64_t{(pixel & mask) >> shift} * 255 + highest / 2) / highest);
    }

    UInt mask;
    int shift;
    UInt highest;  ///< value of a full component
};

void decodePixels(const sSource& source, const sHeader& header, sImage& image) {
    const sComponent red(header.masks[0]);
    const sComponent green(header.masks[1]);
    const sComponent blue(header.masks[2]);
    const sComponent alpha(header.masks[3]);
    const std::size_t pixel_size = header.bits / 8;
    const std::uint8_t* bytes = source.data + header_size;
    for (std::size_t i = 0; i < image.pixels.size(); i += 4, bytes += pixel_size) {
        UInt pixel = littleEndian16(bytes);
        if (pixel_size > 2)
            pixel |= UInt{bytes[2]} << 16;
        if (pixel_size > 3)
            pixel |= UInt{bytes[3]} << 24;
        image.pixels[i] = red.get(pixel, 0);
        image.pixels[i + 1] = green.get(pixel, 0);
        image.pixels[i + 2] = blue.get(pixel, 0);
        image.pixels[i + 3] = alpha.get(pixel, 255);
    }
}

/// Bytes of the first level. Throws for a format that isn't known.
std::uint64_t getDataSize(const sSource& source, const sHeader& header) {
    if (header.format & has_four_cc) {
        const std::uint64_t blocks = std::uint64_t{(header.width + 3) / 4} * ((header.height + 3) / 4);
        if (header.four_cc == fourCC("DXT1"))
            return blocks * 8;
        if (header.four_cc == fourCC("DXT3") || header.four_cc == fourCC("DXT5"))
            return blocks * 16;
    } else if ((header.format & has_rgb) && (header.bits == 16 || header.bits == 24 || header.bits == 32)) {
        return std::uint64_t{header.width} * header.height * (header.bits / 8);
    }
    fail(source, "only DXT1, DXT3, DXT5 and colours of 16, 24 or 32 bits are supported");
}

}  // namespace

sImage decodeDds(const sSource& source) {
    const sHeader header = readHeader(source);
    requireBytes(source, header_size, getDataSize(source, header));

    sImage image{header.width, header.height, {}};
    image.pixels.resize(std::size_t{image.width} * image.height * 4);
    if (header.format & has_four_cc)
        decodeBlocks(source, header, image);
    else
        decodePixels(source, header, image);
    return image;
}

sImageInfo readDdsInfo(const sSource& source) {
    const sHeader header = readHeader(source);
    return {header.width, header.height};
}

}  // namespace Engine::ImageReaders
