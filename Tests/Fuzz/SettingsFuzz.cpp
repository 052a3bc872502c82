// A settings file that somebody edited, and values that no file should be asked to hold.
//
// The input is "sys/settings.xml" itself. What can be read is asked for, changed to texts taken from the input, saved
// and read again: every key must come back.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "Engine/core/FileManager.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/Settings.h"
#include "Tests/Fuzz/TemporaryDirectory.h"

namespace {

using namespace Engine;
using Fuzz::require;

constexpr const char* file_name = "sys/settings.xml";

/// A data directory and an empty writable one, for the whole run, gone with it.
class cHome {
public:
    cHome() {
        std::filesystem::create_directories(m_directory.getPath() + "/data/sys");
        write("constants.xml", "<main><game app_directory=\"fuzz\"/></main>");
        write("settings.xml", "<main/>");
        m_files.emplace(m_directory.getPath() + "/data", "pack", m_directory.getPath() + "/home/");
    }

    void write(const String& name, const std::string& bytes) const {
        std::ofstream(m_directory.getPath() + "/data/sys/" + name, std::ios::binary) << bytes;
    }

private:
    Fuzz::cTemporary m_directory;  ///< first made, last to go
    std::optional<cFileManager> m_files;
};

/// Sets a value that is the input's own bytes, saves, and reads it back.
void saveAndReadAgain(const std::uint8_t* data, std::size_t size) {
    const WString text(std::u16string(data, data + std::min<std::size_t>(size, 64)));
    {
        cSettings settings;
        settings.load(file_name);
        Int width = 800;
        settings.getProperty("graphics", "width", width);
        settings.setProperty("fuzz", "text", text);
        settings.setProperty("fuzz", "color", DXColor{1.0f, 0.5f, 0.0f, 0.0f});
        settings.save();
    }
    cSettings again;
    again.load(file_name);
    WString read;
    DXColor color{0.0f, 0.0f, 0.0f, 9.0f};
    require(again.getProperty("fuzz", "text", read) && read.size() == text.size());
    require(again.getProperty("fuzz", "color", color) && color.a == 0.0f);
    cFileManager::getInstance()->deleteFile(file_name);
    cFileManager::getInstance()->deleteFile(String(file_name) + ".damaged");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static cHome home;
    cResourceManager resources;
    home.write("settings.xml", std::string(data, data + size));
    try {
        saveAndReadAgain(data, size);
    } catch (const String& error) {
        require(error.find(file_name) != String::npos);
    }
    return 0;
}
