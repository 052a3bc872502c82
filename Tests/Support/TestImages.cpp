#include "Tests/Support/TestImages.h"

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>
#include <png.h>
#include <zlib.h>

#include <algorithm>
#include <string_view>

namespace TestImages {

using Engine::sImage;
using Engine::UInt;

namespace {

void append(BYTES& target, std::string_view text) {
    for (const char c : text)
        target.push_back(static_cast<std::uint8_t>(c));
}

void append(BYTES& target, std::span<const std::uint8_t> bytes) {
    for (const std::uint8_t byte : bytes)
        target.push_back(byte);
}

void append(BYTES& target, std::initializer_list<std::uint8_t> bytes) {
    append(target, std::span(bytes.begin(), bytes.size()));
}

void appendBig32(BYTES& target, UInt value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        target.push_back(static_cast<std::uint8_t>(value >> shift));
}

void appendLittle(BYTES& target, UInt value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        target.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void appendChunk(BYTES& target, std::string_view name, const BYTES& data) {
    appendBig32(target, static_cast<UInt>(data.size()));
    BYTES body;
    append(body, name);
    append(body, data);
    append(target, body);
    appendBig32(target, static_cast<UInt>(crc32(0, body.data(), static_cast<uInt>(body.size()))));
}

BYTES component(const sImage& image, std::size_t place) {
    BYTES res;
    for (std::size_t i = place; i < image.pixels.size(); i += 4)
        res.push_back(image.pixels[i]);
    return res;
}

}  // namespace

sImage makeGradient(UInt width, UInt height) {
    sImage image{width, height, {}};
    for (UInt y = 0; y < height; ++y)
        for (UInt x = 0; x < width; ++x)
            for (const UInt value : {x * 255 / width, y * 255 / height, 128u, 255 - (x + y) * 255 / (width + height)})
                image.pixels.push_back(static_cast<std::uint8_t>(value));
    return image;
}

BYTES writePng(UInt width, UInt height, const sPngKind& kind, const std::vector<BYTES>& rows) {
    BYTES file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp target, png_bytep data, png_size_t size) {
            auto& bytes = *static_cast<BYTES*>(png_get_io_ptr(target));
            bytes.insert(bytes.end(), data, data + size);
        },
        nullptr);
    png_set_IHDR(png, info, width, height, kind.bit_depth, kind.color_type,
                 kind.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (kind.color_type == PNG_COLOR_TYPE_PALETTE) {
        const png_color palette[] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {9, 8, 7}};
        const png_byte alphas[] = {255, 128, 0};  // the last entry has none of its own
        png_set_PLTE(png, info, palette, 4);
        png_set_tRNS(png, info, alphas, 3, nullptr);
    }
    std::vector<BYTES> copy = rows;
    std::vector<png_bytep> pointers;
    for (BYTES& row : copy)
        pointers.push_back(row.data());
    png_write_info(png, info);
    png_write_image(png, pointers.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

void setPngSize(BYTES& png, UInt width, UInt height) {
    constexpr std::size_t head = 8;  // the first chunk: its length, name, 13 bytes of data and checksum
    BYTES body(png.begin() + head + 4, png.begin() + head + 8);
    appendBig32(body, width);
    appendBig32(body, height);
    append(body, std::span(png).subspan(head + 16, 5));
    appendBig32(body, static_cast<UInt>(crc32(0, body.data(), static_cast<uInt>(body.size()))));
    std::copy(body.begin(), body.end(), png.begin() + head + 4);
}

BYTES writeJpeg(const sImage& image, bool grey, bool progressive) {
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &buffer, &size);
    jpeg.image_width = image.width;
    jpeg.image_height = image.height;
    jpeg.input_components = grey ? 1 : 4;
    jpeg.in_color_space = grey ? JCS_GRAYSCALE : JCS_EXT_RGBX;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, 95, TRUE);
    jpeg.comp_info[0].h_samp_factor = jpeg.comp_info[0].v_samp_factor = 1;  // colours at full size
    if (progressive)
        jpeg_simple_progression(&jpeg);
    jpeg_start_compress(&jpeg, TRUE);
    BYTES pixels = grey ? component(image, 0) : image.pixels;
    const std::size_t row_size = std::size_t{image.width} * (grey ? 1 : 4);
    while (jpeg.next_scanline < image.height) {
        JSAMPROW row = &pixels[jpeg.next_scanline * row_size];
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
    jpeg_finish_compress(&jpeg);
    jpeg_destroy_compress(&jpeg);
    BYTES file(buffer, buffer + size);
    std::free(buffer);
    return file;
}

BYTES writeJng(const sImage& image, eJngAlpha alpha) {
    BYTES file;
    append(file, std::string_view("\x8BJNG\r\n\x1A\n", 8));
    BYTES head;
    appendBig32(head, image.width);
    appendBig32(head, image.height);
    const std::uint8_t color_type = alpha == eJngAlpha::none ? 10 : 14;
    const std::uint8_t alpha_depth = alpha == eJngAlpha::none ? 0 : 8;
    const std::uint8_t alpha_compression = alpha == eJngAlpha::jpeg ? 8 : 0;
    append(head, {color_type, 8, 8, 0, alpha_depth, alpha_compression, 0, 0});
    appendChunk(file, "JHDR", head);

    // In two pieces each, as writers of large files do.
    const auto appendHalves = [&file](std::string_view name, const BYTES& data) {
        const auto middle = data.begin() + static_cast<std::ptrdiff_t>(data.size() / 2);
        appendChunk(file, name, BYTES(data.begin(), middle));
        appendChunk(file, name, BYTES(middle, data.end()));
    };
    appendHalves("JDAT", writeJpeg(image));
    if (alpha == eJngAlpha::jpeg) {
        sImage grey = image;
        for (std::size_t i = 0; i < grey.pixels.size(); i += 4)
            grey.pixels[i] = grey.pixels[i + 3];
        appendHalves("JDAA", writeJpeg(grey, true));
    } else if (alpha == eJngAlpha::png) {
        const BYTES values = component(image, 3);
        BYTES rows;
        for (std::size_t y = 0; y < image.height; ++y) {
            rows.push_back(0);  // each row's filter: none
            append(rows, std::span(values).subspan(y * image.width, image.width));
        }
        BYTES packed(compressBound(rows.size()));
        uLongf size = packed.size();
        compress(packed.data(), &size, rows.data(), rows.size());
        packed.resize(size);
        appendHalves("IDAT", packed);
    }
    appendChunk(file, "IEND", {});
    return file;
}

BYTES writeDds(UInt width, UInt height, const sDdsFormat& format, const BYTES& data) {
    BYTES file;
    append(file, "DDS ");
    for (const UInt field : {124u, 0x1007u, height, width, 0u, 0u, 0u})
        appendLittle(file, field, 4);
    file.resize(76);
    appendLittle(file, 32, 4);
    appendLittle(file, format.flags, 4);
    append(file, std::string_view(format.four_cc, 4));
    appendLittle(file, format.bits, 4);
    for (const UInt mask : format.masks)
        appendLittle(file, mask, 4);
    appendLittle(file, 0x1000, 4);
    file.resize(128);
    append(file, data);
    return file;
}

BYTES writeTga(const sImage& image, bool packed) {
    BYTES file{0, 0, static_cast<std::uint8_t>(packed ? 10 : 2), 0, 0, 0, 0, 0, 0, 0, 0, 0};
    appendLittle(file, image.width, 2);
    appendLittle(file, image.height, 2);
    append(file, {32, 8});
    for (UInt y = image.height; y-- > 0;) {
        for (UInt x = 0; x < image.width; ++x) {
            if (packed)
                file.push_back(0x80);  // the next pixel, once
            const std::uint8_t* pixel = &image.pixels[(std::size_t{y} * image.width + x) * 4];
            append(file, {pixel[2], pixel[1], pixel[0], pixel[3]});
        }
    }
    return file;
}

BYTES writeBmp(const sImage& image) {
    const UInt row_size = (image.width * 3 + 3) / 4 * 4;
    BYTES file;
    append(file, "BM");
    for (const UInt field : {54 + row_size * image.height, 0u, 54u, 40u, image.width, image.height})
        appendLittle(file, field, 4);
    appendLittle(file, 1, 2);
    appendLittle(file, 24, 2);
    file.resize(54);
    for (UInt y = image.height; y-- > 0;) {
        for (UInt x = 0; x < image.width; ++x) {
            const std::uint8_t* pixel = &image.pixels[(std::size_t{y} * image.width + x) * 4];
            append(file, {pixel[2], pixel[1], pixel[0]});
        }
        file.resize(file.size() + row_size - image.width * 3);
    }
    return file;
}

}  // namespace TestImages
