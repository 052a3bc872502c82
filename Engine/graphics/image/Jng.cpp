#include <zlib.h>

#include <cstring>
#include <string_view>

#include "Engine/graphics/image/ImageReaders.h"

namespace Engine::ImageReaders {

namespace {

constexpr std::string_view png_signature("\x89PNG\r\n\x1A\n", 8);
constexpr std::size_t signature_size = 8;
constexpr std::size_t chunk_frame = 12;  ///< length, name and checksum around a chunk's data

/// What the head chunk says.
struct sHeader {
    UInt width = 0;
    UInt height = 0;
    UInt color_type = 0;         ///< 8 grey, 10 colour; 4 more with alpha
    UInt sample_depth = 0;       ///< of the colour: 8, or 12, or 20 for both in one file
    UInt alpha_depth = 0;        ///< bits
    UInt alpha_compression = 0;  ///< 0 as in a PNG, 8 as a grey JPEG

    Bool hasAlpha() const { return color_type >= 12; }
};

struct sChunk {
    std::string_view name;
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
};

/// The chunk at place, which is then moved behind it. Checksums are verified.
sChunk readChunk(const sSource& source, std::size_t& place) {
    requireBytes(source, place, chunk_frame);
    const std::uint8_t* head = source.data + place;
    const UInt size = bigEndian32(head);
    requireBytes(source, place, std::uint64_t{size} + chunk_frame);
    if (crc32(0, head + 4, size + 4) != bigEndian32(head + 8 + size))
        fail(source, "a chunk is damaged");
    place += size + chunk_frame;
    return {{reinterpret_cast<const char*>(head + 4), 4}, head + 8, size};
}

sHeader readHeader(const sSource& source, std::size_t& place) {
    place = signature_size;
    const sChunk chunk = readChunk(source, place);
    if (chunk.name != "JHDR" || chunk.size != 16)
        fail(source, "the head chunk is missing");
    const sHeader header{.width = bigEndian32(chunk.data),
                         .height = bigEndian32(chunk.data + 4),
                         .color_type = chunk.data[8],
                         .sample_depth = chunk.data[9],
                         .alpha_depth = chunk.data[12],
                         .alpha_compression = chunk.data[13]};
    requireSize(source, header.width, header.height);
    const UInt type = header.color_type;
    if (type != 8 && type != 10 && type != 12 && type != 14)
        fail(source, "the colour type " + std::to_string(type) + " is unknown");
    if (header.sample_depth != 8 && header.sample_depth != 20)
        fail(source, "only 8 bits a colour are supported");
    if (header.hasAlpha() && header.alpha_compression != 0 && header.alpha_compression != 8)
        fail(source, "the alpha's compression is unknown");
    return header;
}

/// The three streams that a file interleaves, each put together again.
struct sStreams {
    std::vector<std::uint8_t> color;       ///< a JPEG file
    std::vector<std::uint8_t> alpha_jpeg;  ///< a grey JPEG file
    std::vector<std::uint8_t> alpha_data;  ///< deflated rows, as a PNG's
};

sStreams readStreams(const sSource& source, std::size_t place) {
    sStreams streams;
    Bool second_color = false;
    for (;;) {
        const sChunk chunk = readChunk(source, place);
        if (chunk.name == "IEND")
            return streams;
        std::vector<std::uint8_t>* target = nullptr;
        if (chunk.name == "JSEP")
            second_color = true;  // what follows is the same picture at 12 bits
        else if (chunk.name == "JDAT" && !second_color)
            target = &streams.color;
        else if (chunk.name == "JDAA" || chunk.name == "JdAA")
            target = &streams.alpha_jpeg;
        else if (chunk.name == "IDAT")
            target = &streams.alpha_data;
        if (target)
            target->insert(target->end(), chunk.data, chunk.data + chunk.size);
    }
}

void append32(std::vector<std::uint8_t>& target, UInt value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        target.push_back(static_cast<std::uint8_t>(value >> shift));
}

void appendChunk(std::vector<std::uint8_t>& target, std::string_view name, std::span<const std::uint8_t> data) {
    append32(target, static_cast<UInt>(data.size()));
    const std::size_t begin = target.size();
    target.insert(target.end(), name.begin(), name.end());
    target.insert(target.end(), data.begin(), data.end());
    append32(target, static_cast<UInt>(crc32(0, &target[begin], static_cast<uInt>(target.size() - begin))));
}

/// Alpha stored as in a PNG is given to the PNG reader as the grey picture that it is.
std::vector<std::uint8_t> wrapAlpha(const sHeader& header, const std::vector<std::uint8_t>& data) {
    std::vector<std::uint8_t> file(png_signature.begin(), png_signature.end());
    std::vector<std::uint8_t> head;
    append32(head, header.width);
    append32(head, header.height);
    head.insert(head.end(), {static_cast<std::uint8_t>(header.alpha_depth), 0, 0, 0, 0});
    appendChunk(file, "IHDR", head);
    appendChunk(file, "IDAT", data);
    appendChunk(file, "IEND", {});
    return file;
}

sImage decodeAlpha(const sSource& source, const sHeader& header, const sStreams& streams) {
    if (header.alpha_compression == 8)
        return decodeJpeg({streams.alpha_jpeg.data(), streams.alpha_jpeg.size(), source.name});
    const std::vector<std::uint8_t> file = wrapAlpha(header, streams.alpha_data);
    return decodePng({file.data(), file.size(), source.name});
}

void requireHeaderSize(const sSource& source, const sHeader& header, const sImage& image) {
    if (image.width != header.width || image.height != header.height)
        fail(source, "its streams differ in size");
}

}  // namespace

sImage decodeJng(const sSource& source) {
    std::size_t place = 0;
    const sHeader header = readHeader(source, place);
    const sStreams streams = readStreams(source, place);
    if (streams.color.empty())
        fail(source, "it holds no colours");
    sImage image = decodeJpeg({streams.color.data(), streams.color.size(), source.name});
    requireHeaderSize(source, header, image);
    if (!header.hasAlpha())
        return image;

    const sImage alpha = decodeAlpha(source, header, streams);
    requireHeaderSize(source, header, alpha);
    for (std::size_t i = 0; i < image.pixels.size(); i += 4)
        image.pixels[i + 3] = alpha.pixels[i];
    return image;
}

sImageInfo readJngInfo(const sSource& source) {
    std::size_t place = 0;
    const sHeader header = readHeader(source, place);
    return {header.width, header.height};
}

}  // namespace Engine::ImageReaders
