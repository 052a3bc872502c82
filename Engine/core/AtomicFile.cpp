#include "Engine/core/AtomicFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "Engine/core/CallStack.h"
#include "Engine/core/FileText.h"
#include "Engine/core/LastError.h"

namespace Engine {

namespace {

/// "dir/name" gives "dir/.name.new". What a crash has left there is simply written over by the next one.
String toTempPath(const String& path) {
    const std::size_t name = path.rfind('/') + 1;
    return path.substr(0, name) + "." + path.substr(name) + ".new";
}

/// Opens the file beside the target and locks it against a second writer.
int openTemp(const String& path, const String& temp_path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode)) {
        errno = S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
        throw lastErrorText();
    }
    const int handle = ::open(temp_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (handle < 0)
        throw lastErrorText();
    if (::flock(handle, LOCK_EX | LOCK_NB) != 0 || ::ftruncate(handle, 0) != 0) {
        const String text = lastErrorText();
        ::close(handle);
        throw text;
    }
    return handle;
}

/// A rename is safe only once its directory is on the disk as well.
void flushDirectoryOf(const String& path) {
    const String directory = path.substr(0, path.rfind('/') + 1);
    const int handle = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    ::fsync(handle);
    ::close(handle);
}

}  // namespace

cAtomicFile::cAtomicFile(const String& path, Bool overwrite, std::function<void()> on_done)
    : cRealFile(openTemp(path, toTempPath(path)), path),
      m_path(path),
      m_temp_path(toTempPath(path)),
      m_on_done(std::move(on_done)) {
    ENGINE_MARK;
    if (!overwrite && ::access(path.c_str(), F_OK) == 0)
        copyTarget();
}

cAtomicFile::~cAtomicFile() {
    if (isOpen())
        ::unlink(m_temp_path.c_str());
}

void cAtomicFile::copyTarget() {
    try {
        cRealFile target(m_path, access_read, eCreating::open_existing);
        copyBytes(m_path, target, *this);
    } catch (...) {
        ::unlink(m_temp_path.c_str());  // a constructor that fails has no destructor to do it
        throw;
    }
    seek(0, from_start);
}

void cAtomicFile::close() {
    ENGINE_MARK;
    if (!isOpen())
        return;
    if (!flushToDisk() || ::rename(m_temp_path.c_str(), m_path.c_str()) != 0) {
        const String text = lastErrorText();
        ::unlink(m_temp_path.c_str());
        cRealFile::close();
        throw String("File \"" + m_path + "\" can't be written. " + text);
    }
    cRealFile::close();
    flushDirectoryOf(m_path);
    if (m_on_done)
        m_on_done();
}

}  // namespace Engine
