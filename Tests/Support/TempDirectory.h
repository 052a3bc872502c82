#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include <minizip/zip.h>

#include "Engine/core/Log.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// A member of a pack for tests: its name and its bytes.
using PACK_MEMBERS = std::vector<std::pair<String, String>>;

/// A directory of its own for one test, gone with it.
class cTempDirectory {
public:
    cTempDirectory() {
        String name = String((std::filesystem::temp_directory_path() / "brindle_test_XXXXXX").string());
        if (!::mkdtemp(name.data()))
            throw String("No temporary directory can be made.");
        m_path = name + "/";
    }
    ~cTempDirectory() {
        std::error_code error;
        std::filesystem::remove_all(m_path.c_str(), error);
    }
    cTempDirectory(const cTempDirectory&) = delete;
    cTempDirectory& operator=(const cTempDirectory&) = delete;

    const String& getPath() const { return m_path; }  ///< absolute, with a trailing "/"
    String operator/(const String& name) const { return m_path + name; }

    /// Writes a file, its directories included.
    void write(const String& name, const std::string& bytes) const {
        const std::filesystem::path path = std::string(m_path + name);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }

    /// The bytes of a file; empty if there is none.
    String read(const String& name) const {
        std::ifstream file(m_path + name, std::ios::binary);
        return String(std::string(std::istreambuf_iterator<char>(file), {}));
    }

    Bool has(const String& name) const { return std::filesystem::exists(std::string(m_path + name)); }

    /// Writes a zip file of deflated members, in this order. An empty text of a name with a trailing "/" is a
    /// directory entry.
    void writePack(const String& name, const PACK_MEMBERS& members) const {
        const std::filesystem::path path = std::string(m_path + name);
        std::filesystem::create_directories(path.parent_path());
        zipFile pack = zipOpen64(path.c_str(), APPEND_STATUS_CREATE);
        for (const auto& [member, bytes] : members) {
            const zip_fileinfo info{};
            zipOpenNewFileInZip(pack, member.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, 6);
            zipWriteInFileInZip(pack, bytes.data(), static_cast<unsigned>(bytes.size()));
            zipCloseFileInZip(pack);
        }
        zipClose(pack, nullptr);
    }

private:
    String m_path;
};

/// Makes a directory the process's current one while it lives, so that a test's logs lie there and go with it.
class cWorkingDirectory {
public:
    explicit cWorkingDirectory(const cTempDirectory& directory) : m_before(std::filesystem::current_path()) {
        cLogManager::getInstance()->closeLogs();
        std::filesystem::current_path(std::string(directory.getPath()));
    }
    ~cWorkingDirectory() {
        cLogManager::getInstance()->closeLogs();
        std::filesystem::current_path(m_before);
    }
    cWorkingDirectory(const cWorkingDirectory&) = delete;
    cWorkingDirectory& operator=(const cWorkingDirectory&) = delete;

private:
    std::filesystem::path m_before;
};

}  // namespace Engine
