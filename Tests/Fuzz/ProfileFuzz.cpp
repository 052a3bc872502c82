// The files of the players, edited by somebody.
//
// The first byte tells which file the rest is: the list of players or the file of the first one. A player comes, plays
// and goes, twice; whatever the files were, his property is there the second time, and no failure comes up.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "Engine/Ui/Profile.h"
#include "Engine/core/Constants.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Log.h"
#include "Engine/core/ResourceManager.h"
#include "Tests/Fuzz/TemporaryDirectory.h"

namespace {

using namespace Engine;
using Fuzz::require;

/// A data directory and a writable one, for the whole run, gone with it.
class cHome {
public:
    cHome() {
        std::filesystem::create_directories(getPath() + "/data/sys");
        std::ofstream(getPath() + "/data/sys/constants.xml")
            << R"(<main><game app_directory="fuzz" profiles="p"/></main>)";
    }

    /// Nothing but this file lies where the players' files do.
    void begin(const String& name, const std::string& bytes) const {
        std::filesystem::remove_all(getPath() + "/home");
        std::filesystem::create_directories(getPath() + "/home/fuzz/p");
        std::ofstream(getPath() + "/home/fuzz/p/" + name, std::ios::binary) << bytes;
    }
    const std::string& getPath() const { return m_directory.getPath(); }

private:
    Fuzz::cTemporary m_directory;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const cHome home;
    if (size == 0)
        return 0;
    const std::string bytes(data + 1, data + size);
    home.begin(data[0] % 2 == 0 ? "profiles.xml" : "00000001.xml", bytes);
    if (data[0] % 2 == 1)
        std::ofstream(home.getPath() + "/home/fuzz/p/profiles.xml")
            << R"(<Profiles NextID="2" CurrentUser="Ann"><Profile Name="Ann" ID="1"/></Profiles>)";

    cFileManager files(home.getPath() + "/data", "pack", home.getPath() + "/home/");
    cResourceManager resources;
    cConstants constants;
    constants.load("sys/constants.xml");
    cProfile::getCurrentUser();
    String id;
    {
        cProfile profile(u"Ann");
        id = profile.getProfileID();
        cProfile::getInts()["played"] = 1;
    }
    cProfile again(u"Ann");
    require(again.getProfileID() == id && cProfile::getInts()["played"] == 1);
    require(cProfile::getCurrentUser() == u"Ann");
    return 0;
}
