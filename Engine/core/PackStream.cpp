#include "Engine/core/PackStream.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "Engine/core/Types.h"

namespace Engine {

namespace {

/// A file with a window onto it; places are absolute, so that seeking back and forth within the window costs nothing.
class cPackStream {
public:
    explicit cPackStream(int handle, ULongLong size) : m_handle(handle), m_size(size) {}
    ~cPackStream() { ::close(m_handle); }
    cPackStream(const cPackStream&) = delete;
    cPackStream& operator=(const cPackStream&) = delete;

    ULongLong getPos() const { return m_pos; }
    Bool hasFailed() const { return m_has_failed; }
    std::size_t read(char* data, std::size_t size);
    Bool seek(ULongLong offset, int origin);

private:
    static constexpr std::size_t window_size = 8 * 1024;

    std::size_t fetch(char* data, std::size_t size);

    int m_handle;
    ULongLong m_size;              ///< bytes in the file
    ULongLong m_pos = 0;           ///< next byte to read
    ULongLong m_window_start = 0;  ///< place of the window's first byte in the file
    std::size_t m_window_used = 0;
    Bool m_has_failed = false;
    char m_window[window_size];
};

/// Reads from m_pos past the window; fewer bytes at the end of the file or on failure.
std::size_t cPackStream::fetch(char* data, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t part = ::pread(m_handle, data + done, size - done, static_cast<off_t>(m_pos + done));
        if (part < 0)
            m_has_failed = true;
        if (part <= 0)
            break;
        done += static_cast<std::size_t>(part);
    }
    return done;
}

std::size_t cPackStream::read(char* data, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        if (m_pos < m_window_start || m_pos >= m_window_start + m_window_used) {
            if (size - done >= window_size) {
                const std::size_t part = fetch(data + done, size - done);
                m_pos += part;
                return done + part;
            }
            m_window_start = m_pos;
            m_window_used = fetch(m_window, window_size);
            if (m_window_used == 0)
                break;
        }
        const std::size_t from = static_cast<std::size_t>(m_pos - m_window_start);
        const std::size_t part = std::min(size - done, m_window_used - from);
        std::memcpy(data + done, m_window + from, part);
        done += part;
        m_pos += part;
    }
    return done;
}

Bool cPackStream::seek(ULongLong offset, int origin) {
    const ULongLong base = origin == ZLIB_FILEFUNC_SEEK_CUR ? m_pos : origin == ZLIB_FILEFUNC_SEEK_END ? m_size : 0;
    const ULongLong target = base + offset;
    if (target < base || target > m_size)
        return false;
    m_pos = target;
    return true;
}

voidpf openStream(voidpf, const void* path, int) {
    const int handle = ::open(static_cast<const char*>(path), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (handle < 0)
        return nullptr;
    struct stat info {};
    if (::fstat(handle, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(handle);
        return nullptr;
    }
    return std::make_unique<cPackStream>(handle, static_cast<ULongLong>(info.st_size)).release();
}

uLong readStream(voidpf, voidpf stream, void* data, uLong size) {
    return static_cast<cPackStream*>(stream)->read(static_cast<char*>(data), size);
}

uLong writeStream(voidpf, voidpf, const void*, uLong) {
    return 0;
}

ZPOS64_T tellStream(voidpf, voidpf stream) {
    return static_cast<cPackStream*>(stream)->getPos();
}

long seekStream(voidpf, voidpf stream, ZPOS64_T offset, int origin) {
    return static_cast<cPackStream*>(stream)->seek(offset, origin) ? 0 : -1;
}

int closeStream(voidpf, voidpf stream) {
    const std::unique_ptr<cPackStream> owner(static_cast<cPackStream*>(stream));
    return 0;
}

int testStream(voidpf, voidpf stream) {
    return static_cast<cPackStream*>(stream)->hasFailed() ? 1 : 0;
}

}  // namespace

unzFile openPack(const String& path) {
    zlib_filefunc64_def functions{openStream, readStream,  writeStream, tellStream,
                                  seekStream, closeStream, testStream,  nullptr};
    return unzOpen2_64(path.c_str(), &functions);
}

}  // namespace Engine
