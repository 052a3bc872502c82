#include <cstdio>  // jpeglib.h needs FILE and size_t before it

#include <jpeglib.h>

#include <jerror.h>

#include <csetjmp>

#include "Engine/graphics/image/ImageReaders.h"

namespace Engine::ImageReaders {

namespace {

/// Scans of a progressive picture. Ten are usual; each costs a walk over the whole picture, however small it is in
/// the file.
constexpr int max_scans = 40;

/// libjpeg reading from memory. The library leaves a failed call by longjmp: see cPngReader.
class cJpegReader {
public:
    explicit cJpegReader(const sSource& source) : m_source(source) {
        m_jpeg.err = jpeg_std_error(&m_errors);
        m_errors.error_exit = onError;
        m_errors.emit_message = onMessage;
        m_jpeg.client_data = this;
        if (!tryCreate())
            fail(source, m_error);
        m_progress.progress_monitor = onProgress;
        m_jpeg.progress = &m_progress;
    }
    ~cJpegReader() { jpeg_destroy_decompress(&m_jpeg); }
    cJpegReader(const cJpegReader&) = delete;
    cJpegReader& operator=(const cJpegReader&) = delete;

    void readHeader() {
        if (!tryHeader())
            fail(m_source, m_error);
    }

    void readRows(JSAMPARRAY rows) {
        if (!tryRows(rows))
            fail(m_source, m_error);
    }

    UInt getWidth() const { return m_jpeg.image_width; }
    UInt getHeight() const { return m_jpeg.image_height; }

private:
    Bool tryCreate() {
        if (setjmp(m_jump))
            return false;
        jpeg_create_decompress(&m_jpeg);
        return true;
    }

    Bool tryHeader() {
        if (setjmp(m_jump))
            return false;
        jpeg_mem_src(&m_jpeg, m_source.data, static_cast<unsigned long>(m_source.size));
        jpeg_read_header(&m_jpeg, TRUE);
        return true;
    }

    Bool tryRows(JSAMPARRAY rows) {
        if (setjmp(m_jump))
            return false;
        m_jpeg.out_color_space = JCS_EXT_RGBA;
        m_jpeg.dct_method = JDCT_ISLOW;
        jpeg_start_decompress(&m_jpeg);
        while (m_jpeg.output_scanline < m_jpeg.output_height)
            jpeg_read_scanlines(&m_jpeg, rows + m_jpeg.output_scanline, m_jpeg.output_height - m_jpeg.output_scanline);
        jpeg_finish_decompress(&m_jpeg);
        return true;
    }

    static cJpegReader& from(j_common_ptr jpeg) { return *static_cast<cJpegReader*>(jpeg->client_data); }

    [[noreturn]] static void onError(j_common_ptr jpeg) {
        char text[JMSG_LENGTH_MAX];
        jpeg->err->format_message(jpeg, text);
        from(jpeg).m_error = text;
        std::longjmp(from(jpeg).m_jump, 1);
    }

    /// The library would go on with grey pixels after damage; here damage is an error. What it merely remarks on
    /// (an odd version, bytes between markers) is no damage.
    static void onMessage(j_common_ptr jpeg, int level) {
        const int code = jpeg->err->msg_code;
        const Bool remark = code == JWRN_ADOBE_XFORM || code == JWRN_JFIF_MAJOR || code == JWRN_EXTRANEOUS_DATA;
        if (level < 0 && !remark)
            onError(jpeg);
    }

    static void onProgress(j_common_ptr jpeg) {
        cJpegReader& reader = from(jpeg);
        if (reader.m_jpeg.input_scan_number <= max_scans)
            return;
        reader.m_error = "too many scans";
        std::longjmp(reader.m_jump, 1);
    }

    const sSource& m_source;
    std::string m_error;
    std::jmp_buf m_jump;
    jpeg_error_mgr m_errors{};
    jpeg_progress_mgr m_progress{};
    jpeg_decompress_struct m_jpeg{};
};

}  // namespace

sImage decodeJpeg(const sSource& source) {
    cJpegReader reader(source);
    reader.readHeader();
    requireSize(source, reader.getWidth(), reader.getHeight());

    sImage image{reader.getWidth(), reader.getHeight(), {}};
    image.pixels.resize(std::size_t{image.width} * image.height * 4);
    std::vector<JSAMPROW> rows(image.height);
    for (UInt y = 0; y < image.height; ++y)
        rows[y] = &image.pixels[std::size_t{y} * image.width * 4];
    reader.readRows(rows.data());
    return image;
}

sImageInfo readJpegInfo(const sSource& source) {
    cJpegReader reader(source);
    reader.readHeader();
    requireSize(source, reader.getWidth(), reader.getHeight());
    return {reader.getWidth(), reader.getHeight()};
}

}  // namespace Engine::ImageReaders
