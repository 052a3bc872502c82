#include "Tests/Fuzz/ImageFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzImage(data, size, "fuzz.png");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t max_size,
                                               unsigned int) {
    const std::size_t res = LLVMFuzzerMutate(data, size, max_size);
    repairChecksums(data, res);
    return res;
}
