// Any bytes as a pack: its directory is walked, and each member is opened by its place and read to its end.

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <fstream>

#include "Engine/core/FileNames.h"
#include "Engine/core/ZipFile.h"

namespace {

using namespace Engine;

constexpr ULong read_limit = 1 << 20;  ///< bytes read of one member; what lies behind is more of the same
constexpr int member_limit = 64;       ///< members read of one pack

const String& packPath() {
    static const String path = "/dev/shm/brindle_fuzz_" + std::to_string(::getpid()) + ".pack";
    return path;
}

void readMember(const std::shared_ptr<cPack>& pack, const cZipFile::sMember& member) {
    try {
        cZipFile file(pack, member.place, member.name);
        char part[4096];
        for (ULong done = 0; done < read_limit;) {
            const ULong size = file.read(part, sizeof(part));
            if (size == 0)
                break;
            done += size;
        }
        file.seek(-10, iFile::from_current);
        file.read(part, sizeof(part));
    } catch (const String&) {
    }
}

void readPack() {
    cZipFile::ZIP_FIND find = cZipFile::findOpen(packPath());
    const auto pack = std::make_shared<cPack>(packPath());
    cZipFile::sMember member;
    int count = 0;
    for (Bool more = cZipFile::findFirstFile(find, member); more; more = cZipFile::findNextFile(find, member)) {
        isInnerName(member.name);
        if (++count <= member_limit)
            readMember(pack, member);
    }
    cZipFile::findClose(find);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ofstream(packPath(), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    try {
        readPack();
    } catch (const String&) {
    }
    std::remove(packPath().c_str());
    return 0;
}
