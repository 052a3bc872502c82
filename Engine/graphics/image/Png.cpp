#include <png.h>

#include <csetjmp>
#include <cstring>

#include "Engine/graphics/image/ImageReaders.h"

namespace Engine {

namespace ImageReaders {

namespace {

constexpr png_uint_32 max_chunks = 256;                 ///< ancillary chunks that the library may keep
constexpr png_alloc_size_t max_chunk_memory = 1 << 20;  ///< bytes for one of them once unpacked
constexpr std::uint64_t max_ratio = 1040;               ///< deflate can't pack tighter than 1 to 1032

/// libpng reading from memory. The library leaves a failed call by longjmp, so each call to it stands in an operation
/// of its own that holds nothing to be destroyed; what is allocated lives in the object or in its caller.
class cPngReader {
public:
    explicit cPngReader(const sSource& source)
        : m_source(source), m_png(png_create_read_struct(PNG_LIBPNG_VER_STRING, this, onError, onWarning)) {
        if (m_png)
            m_info = png_create_info_struct(m_png);
        if (!m_info) {
            png_destroy_read_struct(&m_png, &m_info, nullptr);
            fail(source, "out of memory");
        }
    }
    ~cPngReader() { png_destroy_read_struct(&m_png, &m_info, nullptr); }
    cPngReader(const cPngReader&) = delete;
    cPngReader& operator=(const cPngReader&) = delete;

    void readHeader() {
        if (!tryHeader())
            fail(m_source, m_error);
    }

    void readRows(png_bytepp rows) {
        if (!tryRows(rows))
            fail(m_source, m_error);
    }

    UInt getWidth() const { return png_get_image_width(m_png, m_info); }
    UInt getHeight() const { return png_get_image_height(m_png, m_info); }
    /// Bytes of the pixels as they are packed in the file.
    std::uint64_t getPackedSize() const {
        const std::uint64_t bits =
            std::uint64_t{getWidth()} * png_get_channels(m_png, m_info) * png_get_bit_depth(m_png, m_info);
        return (bits + 7) / 8 * getHeight();
    }

private:
    Bool tryHeader() {
        if (setjmp(png_jmpbuf(m_png)))
            return false;
        png_set_user_limits(m_png, max_image_side, max_image_side);
        png_set_chunk_cache_max(m_png, max_chunks);
        png_set_chunk_malloc_max(m_png, max_chunk_memory);
        png_set_read_fn(m_png, this, onRead);
        png_read_info(m_png, m_info);
        return true;
    }

    Bool tryRows(png_bytepp rows) {
        if (setjmp(png_jmpbuf(m_png)))
            return false;
        png_set_expand(m_png);
        png_set_scale_16(m_png);
        png_set_gray_to_rgb(m_png);
        png_set_add_alpha(m_png, 0xFF, PNG_FILLER_AFTER);
        png_set_interlace_handling(m_png);
        png_read_update_info(m_png, m_info);
        if (png_get_rowbytes(m_png, m_info) != std::size_t{getWidth()} * 4)
            png_error(m_png, "unexpected pixel format");
        png_read_image(m_png, rows);
        png_read_end(m_png, nullptr);
        return true;
    }

    static void onRead(png_structp png, png_bytep target, png_size_t count) {
        auto* reader = static_cast<cPngReader*>(png_get_io_ptr(png));
        if (count > reader->m_source.size - reader->m_place)
            png_error(png, "the file is cut");
        std::memcpy(target, reader->m_source.data + reader->m_place, count);
        reader->m_place += count;
    }

    [[noreturn]] static void onError(png_structp png, png_const_charp text) {
        static_cast<cPngReader*>(png_get_error_ptr(png))->m_error = text;
        png_longjmp(png, 1);
    }

    static void onWarning(png_structp, png_const_charp) {}

    const sSource& m_source;
    std::size_t m_place = 0;
    std::string m_error;
    png_structp m_png = nullptr;
    png_infop m_info = nullptr;
};

}  // namespace

sImage decodePng(const sSource& source) {
    cPngReader reader(source);
    reader.readHeader();
    requireSize(source, reader.getWidth(), reader.getHeight());
    if (reader.getPackedSize() > source.size * max_ratio)
        fail(source, "the file is cut");

    sImage image{reader.getWidth(), reader.getHeight(), {}};
    image.pixels.resize(std::size_t{image.width} * image.height * 4);
    std::vector<png_bytep> rows(image.height);
    for (UInt y = 0; y < image.height; ++y)
        rows[y] = &image.pixels[std::size_t{y} * image.width * 4];
    reader.readRows(rows.data());
    return image;
}

sImageInfo readPngInfo(const sSource& source) {
    constexpr std::size_t header_place = 16;  // behind the signature and the head of the first chunk
    requireBytes(source, header_place, 8);
    const UInt width = bigEndian32(source.data + header_place);
    const UInt height = bigEndian32(source.data + header_place + 4);
    requireSize(source, width, height);
    return {width, height};
}

}  // namespace ImageReaders

std::vector<std::uint8_t> encodePng(const sImage& image, const String& name) {
    png_image head{};
    head.version = PNG_IMAGE_VERSION;
    head.width = image.width;
    head.height = image.height;
    head.format = PNG_FORMAT_RGBA;
    // The library's bound on the size saves a first pass that would only measure.
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(head);
    std::vector<std::uint8_t> file(size);
    const Bool done = png_image_write_to_memory(&head, file.data(), &size, 0, image.pixels.data(), 0, nullptr) != 0;
    file.resize(done ? size : 0);
    const std::string message = head.message;
    png_image_free(&head);
    if (!done)
        throw String("Image \"" + name + "\": " + message + ".");
    return file;
}

}  // namespace Engine
