// The file tree beside its peers: indexing at start, opening and reading a packed file, asking for a name.
//
// 5,000 members in 4 packs and 2,000 loose files. The peers do less at start: libzip reads the four directories,
// PhysicsFS mounts the packs; neither looks at the loose files.

#include <benchmark/benchmark.h>
#include <minizip/unzip.h>
#include <physfs.h>
#include <zip.h>

#include "Engine/core/FileManager.h"
#include "Tests/Support/TempDirectory.h"

namespace {

using namespace Engine;

constexpr int pack_count = 4;
constexpr int members_per_pack = 1250;
constexpr int loose_count = 2000;
constexpr std::size_t member_size = 8 * 1024;

String toMemberName(int pack, int number) {
    return "levels/group" + std::to_string(pack) + "/picture_" + std::to_string(number) + ".png";
}

/// The data directory that all of this file's benchmarks read.
class cTree {
public:
    cTree() {
        data.write("sys/constants.xml", R"(<constants><game app_directory="App"/></constants>)");
        for (int i = 0; i < loose_count; ++i)
            data.write("loose/dir" + std::to_string(i % 20) + "/file_" + std::to_string(i) + ".xml", "<x/>");
        for (int pack = 0; pack < pack_count; ++pack)
            data.writePack(toPackName(pack), makeMembers(pack));
    }

    static String toPackName(int pack) { return "data" + std::to_string(pack) + ".pack"; }
    String getPackPath(int pack) const { return data / toPackName(pack); }

    cTempDirectory data;
    cTempDirectory home;

private:
    static PACK_MEMBERS makeMembers(int pack) {
        PACK_MEMBERS members;
        UInt state = 1;
        for (int i = 0; i < members_per_pack; ++i) {
            String bytes;
            while (bytes.size() < member_size)
                bytes += static_cast<char>((state = state * 1664525u + 1013904223u) >> 24 & 0x1F);
            members.emplace_back(toMemberName(pack, i), bytes);
        }
        return members;
    }
};

const cTree& tree() {
    static const cTree result;
    return result;
}

std::unique_ptr<cFileManager> startManager() {
    return std::make_unique<cFileManager>(tree().data.getPath(), "pack", tree().home.getPath());
}

void startIndex(benchmark::State& state) {
    tree();
    for (auto _ : state)
        benchmark::DoNotOptimize(startManager());
}
BENCHMARK(startIndex)->Unit(benchmark::kMillisecond);

void startLibzip(benchmark::State& state) {
    tree();
    for (auto _ : state) {
        zip_t* packs[pack_count];
        for (int pack = 0; pack < pack_count; ++pack)
            packs[pack] = zip_open(tree().getPackPath(pack).c_str(), ZIP_RDONLY, nullptr);
        for (zip_t* pack : packs)
            zip_discard(pack);
    }
}
BENCHMARK(startLibzip)->Unit(benchmark::kMillisecond);

void startPhysfs(benchmark::State& state) {
    tree();
    for (auto _ : state) {
        PHYSFS_init(nullptr);
        for (int pack = 0; pack < pack_count; ++pack)
            PHYSFS_mount(tree().getPackPath(pack).c_str(), nullptr, 1);
        PHYSFS_deinit();
    }
}
BENCHMARK(startPhysfs)->Unit(benchmark::kMillisecond);

/// Walks through all members in an order that jumps.
int nextNumber(int number) {
    return (number + 619) % members_per_pack;
}

void openAndRead(benchmark::State& state) {
    const auto files = startManager();
    std::vector<String> names;
    for (int i = 0; i < members_per_pack; ++i)
        names.push_back(toMemberName(1, i));
    char bytes[member_size];
    int number = 0;
    for (auto _ : state) {
        number = nextNumber(number);
        const auto file = files->open(names[static_cast<std::size_t>(number)]);
        if (file->read(bytes, member_size) != member_size)
            state.SkipWithError("short read");
        file->close();
    }
}
BENCHMARK(openAndRead);

std::vector<unz64_file_pos> findPlaces(unzFile pack) {
    std::vector<unz64_file_pos> places;
    for (int result = unzGoToFirstFile(pack); result == UNZ_OK; result = unzGoToNextFile(pack)) {
        places.emplace_back();
        unzGetFilePos64(pack, &places.back());
    }
    return places;
}

/// minizip on a pack that stays open, each member's place known: the least that the library needs.
void openAndReadMinizip(benchmark::State& state) {
    const unzFile pack = unzOpen64(tree().getPackPath(1).c_str());
    const std::vector<unz64_file_pos> places = findPlaces(pack);
    char bytes[member_size];
    int number = 0;
    for (auto _ : state) {
        number = nextNumber(number);
        unzGoToFilePos64(pack, &places[static_cast<std::size_t>(number)]);
        unzOpenCurrentFile(pack);
        if (unzReadCurrentFile(pack, bytes, member_size) != static_cast<int>(member_size))
            state.SkipWithError("short read");
        unzCloseCurrentFile(pack);
    }
    unzClose(pack);
}
BENCHMARK(openAndReadMinizip);

void lookUpMiss(benchmark::State& state) {
    const auto files = startManager();
    const String name = "Levels/Group2/Picture_777.dds";
    for (auto _ : state)
        benchmark::DoNotOptimize(files->isExist(name));
}
BENCHMARK(lookUpMiss);

void lookUpHit(benchmark::State& state) {
    const auto files = startManager();
    const String name = "Levels/Group2/Picture_777.png";
    for (auto _ : state)
        benchmark::DoNotOptimize(files->isExist(name));
}
BENCHMARK(lookUpHit);

}  // namespace

BENCHMARK_MAIN();
