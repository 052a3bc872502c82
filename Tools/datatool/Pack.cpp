#include <minizip/zip.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <map>

#include "Engine/core/DirectoryWalk.h"
#include "Engine/core/FileNames.h"
#include "Engine/core/LastError.h"
#include "Engine/core/ZipFile.h"
#include "Tools/datatool/Commands.h"
#include "Tools/datatool/FileBytes.h"

namespace Datatool {

using namespace Engine;

namespace {

constexpr uLong first_dos_date = 0x00210000;  ///< 1 January 1980, midnight: the earliest that the format knows
constexpr uLong flag_utf8_name = 1 << 11;
constexpr int best_level = 9;

/// Files by key, which is their order in the pack; the second is the name on disk.
using NAMES = std::map<String, String>;

NAMES collectNames(const String& directory, const String& out) {
    NAMES names;
    walkDirectory(directory, true, [&](const String& name) {
        std::error_code error;
        if (std::filesystem::equivalent(std::string(directory + name), std::string(out), error))
            return;
        if (!isInnerName(name))
            throw String(directory + name + ": the game takes no such name from a pack");
        if (getFileExt(name) == "pack")
            throw String(directory + name + ": a pack within a pack is never read");
        const auto [entry, is_new] = names.emplace(toFileKey(name), name);
        if (!is_new)
            throw String(directory + name + ": the same name as " + entry->second + " but for letter case");
    });
    if (names.empty())
        throw String(directory + ": no files to pack");
    return names;
}

/// The game refuses members above a size.
BYTES readMember(const String& path) {
    const std::unique_ptr<iFile> file = openFile(path);
    if (file->getSize() > cZipFile::max_size)
        throw String(path + ": larger than 512 MB, the most that the game reads from a pack");
    return readAll(*file);
}

/// The finished pack is moved over what is there: never over a device, a pipe or a directory.
void requireReplaceable(const String& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(std::string(path), error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        throw String(path + ": can't be written. It is no regular file");
}

/// The pack in the making, beside its target; gone unless it is finished.
class cPackWriter {
public:
    explicit cPackWriter(const String& path)
        : m_path(path), m_temp_path(path + ".new"), m_zip(zipOpen64(m_temp_path.c_str(), APPEND_STATUS_CREATE)) {
        if (!m_zip)
            throw String(m_path + ": can't be written. " + lastErrorText());
    }
    ~cPackWriter() {
        if (m_zip)
            zipClose(m_zip, nullptr);
        std::remove(m_temp_path.c_str());
    }
    cPackWriter(const cPackWriter&) = delete;
    cPackWriter& operator=(const cPackWriter&) = delete;

    void add(const String& name, const BYTES& bytes) {
        zip_fileinfo info{};
        info.dosDate = first_dos_date;
        require(zipOpenNewFileInZip4_64(m_zip, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                        best_level, 0, -MAX_WBITS, DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY, nullptr, 0, 0,
                                        flag_utf8_name, 0));
        require(zipWriteInFileInZip(m_zip, bytes.data(), static_cast<unsigned>(bytes.size())));
        require(zipCloseFileInZip(m_zip));
    }

    void finish() {
        require(zipClose(std::exchange(m_zip, nullptr), nullptr));
        if (std::rename(m_temp_path.c_str(), m_path.c_str()) != 0)
            throw String(m_path + ": can't be written. " + lastErrorText());
    }

private:
    void require(int result) const {
        if (result != ZIP_OK)
            throw String(m_path + ": can't be written. " + lastErrorText());
    }

    String m_path;
    String m_temp_path;
    zipFile m_zip;
};

}  // namespace

void pack(const String& directory, const String& out) {
    if (!std::filesystem::is_directory(std::string(directory)))
        throw String(directory + ": no such directory");
    const String path = directory.ends_with('/') ? directory : String(directory + "/");
    const NAMES names = collectNames(path, out);
    requireReplaceable(out);
    errno = 0;
    cPackWriter writer(out);
    for (const auto& [key, name] : names)
        writer.add(name, readMember(path + name));
    writer.finish();
}

}  // namespace Datatool
