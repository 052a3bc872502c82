#include "Engine/core/RealFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "Engine/core/CallStack.h"

namespace Engine {

namespace {

constexpr ULong max_size = std::numeric_limits<Long>::max();

int toFlags(UInt access, cRealFile::eCreating creating) {
    // Not blocking: opening a pipe that somebody put into the data must not stop the game.
    int flags = O_CLOEXEC | O_NONBLOCK;
    flags |= access & cRealFile::access_write ? (access & cRealFile::access_read ? O_RDWR : O_WRONLY) : O_RDONLY;
    if (creating != cRealFile::eCreating::open_existing)
        flags |= O_CREAT;
    if (creating == cRealFile::eCreating::create_always)
        flags |= O_TRUNC;
    return flags;
}

const char* toMode(UInt access) {
    if (!(access & cRealFile::access_write))
        return "rb";
    return access & cRealFile::access_read ? "r+b" : "wb";
}

}  // namespace

cRealFile::cRealFile(const String& file_name, UInt access, eCreating creating) : m_name(file_name) {
    ENGINE_MARK;
    attach(::open(file_name.c_str(), toFlags(access, creating), 0666), toMode(access));
}

cRealFile::cRealFile(int handle, const String& file_name) : m_name(file_name) {
    ENGINE_MARK;
    attach(handle, "r+b");
}

cRealFile::~cRealFile() = default;

void cRealFile::attach(int handle, const char* mode) {
    struct stat info {};
    if (handle < 0 || ::fstat(handle, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > max_size) {
        const Bool too_large = handle >= 0 && S_ISREG(info.st_mode) && info.st_size > max_size;
        if (handle >= 0)
            ::close(handle);
        throw String("File \"" + m_name + (too_large ? "\" is too large." : "\" not found."));
    }
    m_size = static_cast<ULong>(info.st_size);
    m_file.reset(::fdopen(handle, mode));
    if (!m_file) {
        ::close(handle);
        throw String("File \"" + m_name + "\" not found.");
    }
}

ULong cRealFile::getSize() const {
    return m_file ? m_size : 0;
}

void cRealFile::seek(Long offset, ULong mode) {
    if (!m_file)
        return;
    const LongLong base = mode == from_current ? m_pos : mode == from_end ? m_size : 0;
    m_pos = static_cast<ULong>(std::clamp<LongLong>(base + offset, 0, m_size));
    std::fseek(m_file.get(), static_cast<long>(m_pos), SEEK_SET);
    m_last = eLast::none;
}

/// A stream must be placed anew between reading and writing.
void cRealFile::switchTo(eLast operation) {
    if (m_last != eLast::none && m_last != operation)
        std::fseek(m_file.get(), static_cast<long>(m_pos), SEEK_SET);
    m_last = operation;
}

ULong cRealFile::read(void* data, ULong size) {
    if (!m_file || size == 0)
        return 0;
    switchTo(eLast::read);
    const ULong done = static_cast<ULong>(std::fread(data, 1, size, m_file.get()));
    m_pos += done;
    return done;
}

ULong cRealFile::write(const void* data, ULong size) {
    if (!m_file || size == 0)
        return 0;
    switchTo(eLast::write);
    errno = 0;
    const ULong room = max_size - m_pos;
    const ULong done = static_cast<ULong>(std::fwrite(data, 1, std::min(size, room), m_file.get()));
    if (done < size && m_error == 0)
        m_error = size > room ? EFBIG : errno ? errno : EIO;
    m_pos += done;
    m_size = std::max(m_size, m_pos);
    return done;
}

Bool cRealFile::flushToDisk() {
    if (!m_file)
        return false;
    if (m_error == 0 && (std::fflush(m_file.get()) != 0 || ::fsync(::fileno(m_file.get())) != 0))
        m_error = errno ? errno : EIO;
    errno = m_error;
    return m_error == 0;
}

void cRealFile::close() {
    m_file.reset();
}

}  // namespace Engine
