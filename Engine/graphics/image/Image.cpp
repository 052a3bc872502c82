#include "Engine/graphics/image/Image.h"

#include <string_view>

#include "Engine/core/CallStack.h"
#include "Engine/graphics/image/ImageReaders.h"

namespace Engine {

namespace ImageReaders {

void fail(const sSource& source, const std::string& what) {
    throw String("Image \"" + source.name + "\": " + what + ".");
}

void requireSize(const sSource& source, std::uint64_t width, std::uint64_t height) {
    if (width == 0 || height == 0 || width > max_image_side || height > max_image_side)
        fail(source, "a size of " + std::to_string(width) + " x " + std::to_string(height) + " is not supported");
}

void requireBytes(const sSource& source, std::size_t offset, std::uint64_t count) {
    if (offset > source.size || count > source.size - offset)
        fail(source, "the file is cut");
}

namespace {

struct sFormat {
    std::string_view signature;
    sImage (*decode)(const sSource&);
    sImageInfo (*read_info)(const sSource&);
};

constexpr sFormat formats[] = {
    {std::string_view("\x89PNG", 4), decodePng, readPngInfo},
    {std::string_view("\xFF\xD8\xFF", 3), decodeJpeg, readJpegInfo},
    {std::string_view("\x8BJNG", 4), decodeJng, readJngInfo},
    {std::string_view("DDS ", 4), decodeDds, readDdsInfo},
    {std::string_view("BM", 2), decodeBmp, readBmpInfo},
};
constexpr sFormat tga{{}, decodeTga, readTgaInfo};

const sFormat& findFormat(const sSource& source) {
    const std::string_view text(reinterpret_cast<const char*>(source.data), source.size);
    for (const sFormat& format : formats)
        if (text.starts_with(format.signature))
            return format;
    if (toLower(source.name).ends_with(".tga"))  // no valid TGA begins with one of the signatures
        return tga;
    fail(source, "not a picture of a known format");
}

}  // namespace

}  // namespace ImageReaders

sImage decodeImage(const void* data, std::size_t size, const String& name) {
    ENGINE_MARK;
    const ImageReaders::sSource source{static_cast<const std::uint8_t*>(data), size, name};
    return ImageReaders::findFormat(source).decode(source);
}

sImageInfo readImageInfo(const void* data, std::size_t size, const String& name) {
    ENGINE_MARK;
    const ImageReaders::sSource source{static_cast<const std::uint8_t*>(data), size, name};
    return ImageReaders::findFormat(source).read_info(source);
}

}  // namespace Engine
