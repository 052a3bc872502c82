#include "Tests/Fuzz/ChunkMutator.h"
#include "Tests/Fuzz/ImageFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzImage(data, size, "fuzz.png");
    return 0;
}
