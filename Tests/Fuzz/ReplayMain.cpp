// Stands for the fuzzer in the ordinary builds: hands each file of a directory to the fuzz target that it is linked
// with, so that what was once found stays fixed.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Targets with a mutator of their own call this; nothing is changed here.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t*, std::size_t size, std::size_t) {
    return size;
}

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++files;
        }
    }
    std::printf("%d files\n", files);
    return files > 0 ? 0 : 1;
}
