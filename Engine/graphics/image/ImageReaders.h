#pragma once

#include "Engine/graphics/image/Image.h"

/// The readers behind decodeImage(), one per format. Each takes the whole file, expects its signature to have been
/// seen, and throws through fail().
namespace Engine::ImageReaders {

struct sSource {
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
    const String& name;  ///< of the file, for errors
};

/// Throws `Image "<name>": <what>.`
[[noreturn]] void fail(const sSource& source, const std::string& what);

/// Throws unless both sides are in 1 to max_image_side.
void requireSize(const sSource& source, std::uint64_t width, std::uint64_t height);

/// Throws "the file is cut" if fewer than count bytes lie at offset.
void requireBytes(const sSource& source, std::size_t offset, std::uint64_t count);

inline UInt littleEndian16(const std::uint8_t* bytes) {
    return UInt{bytes[0]} | UInt{bytes[1]} << 8;
}

inline UInt littleEndian32(const std::uint8_t* bytes) {
    return littleEndian16(bytes) | littleEndian16(bytes + 2) << 16;
}

inline UInt bigEndian32(const std::uint8_t* bytes) {
    return UInt{bytes[0]} << 24 | UInt{bytes[1]} << 16 | UInt{bytes[2]} << 8 | UInt{bytes[3]};
}

sImage decodePng(const sSource& source);
sImageInfo readPngInfo(const sSource& source);

sImage decodeJpeg(const sSource& source);
sImageInfo readJpegInfo(const sSource& source);

sImage decodeJng(const sSource& source);
sImageInfo readJngInfo(const sSource& source);

sImage decodeDds(const sSource& source);
sImageInfo readDdsInfo(const sSource& source);

sImage decodeBmp(const sSource& source);
sImageInfo readBmpInfo(const sSource& source);

sImage decodeTga(const sSource& source);
sImageInfo readTgaInfo(const sSource& source);

}  // namespace Engine::ImageReaders
