#pragma once

#include <optional>

#include "Engine/core/FileManager.h"
#include "Engine/core/ResourceManager.h"
#include "Tests/Support/TempDirectory.h"

namespace Engine {

/// A data directory and a writable one for one test, with the managers that read them.
class cDataDirectory {
public:
    cDataDirectory() {
        m_directory.write("data/sys/constants.xml", "<main><game app_directory=\"test\"/></main>");
        m_files.emplace(m_directory / "data", "pack", m_directory / "home/");
        m_resources.emplace();
    }

    /// A shipped file; the index learns of it by a restart.
    void ship(const String& name, const std::string& bytes) {
        m_directory.write("data/" + name, bytes);
        restart();
    }
    /// A file in the writable directory.
    void write(const String& name, const std::string& bytes) {
        m_directory.write("home/test/" + name, bytes);
        restart();
    }
    /// The bytes of a file in the writable directory; empty if there is none.
    String read(const String& name) const { return m_directory.read("home/test/" + name); }

    void restart() {
        m_resources.reset();
        m_files.reset();
        m_files.emplace(m_directory / "data", "pack", m_directory / "home/");
        m_resources.emplace();
    }

private:
    cTempDirectory m_directory;
    std::optional<cFileManager> m_files;
    std::optional<cResourceManager> m_resources;
};

/// UTF-16LE as it lies in a file.
inline String toBytes(std::u16string_view text) {
    return String(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
}

}  // namespace Engine
