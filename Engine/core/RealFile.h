#pragma once

#include <cstdio>
#include <memory>

#include "Engine/core/File.h"
#include "Engine/core/String.h"

namespace Engine {

/// A file on disk, read and written in place. Its size is limited to what a Long can seek to (2 GiB - 1).
class cRealFile : public iFile {
public:
    enum eAccess : UInt { access_read = 1, access_write = 2 };
    enum class eCreating { open_existing, create_always, open_always };

    /// Throws `File "<name>" not found.` for what can't be opened or is no regular file, and
    /// `File "<name>" is too large.`.
    /// @param access  access_read, access_write or both
    cRealFile(const String& file_name, UInt access, eCreating creating);
    /// Takes over an open descriptor that may be read and written.
    /// @param file_name  for the texts of failures
    cRealFile(int handle, const String& file_name);
    ~cRealFile() override;

    ULong getSize() const override;
    void seek(Long offset, ULong mode) override;
    ULong read(void* data, ULong size) override;
    ULong write(const void* data, ULong size) override;
    void close() override;

protected:
    const String& getName() const { return m_name; }
    Bool isOpen() const { return m_file != nullptr; }
    /// Brings what was written to the disk itself; false if a write has failed or this does (errno tells why).
    Bool flushToDisk();

private:
    enum class eLast { none, read, write };

    void attach(int handle, const char* mode);
    void switchTo(eLast operation);

    struct sClose {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, sClose> m_file;  ///< null once closed
    String m_name;
    ULong m_size = 0;  ///< bytes
    ULong m_pos = 0;   ///< bytes
    int m_error = 0;   ///< of the first write that failed
    eLast m_last = eLast::none;
};

}  // namespace Engine
