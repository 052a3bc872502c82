// Documents in either form, as a modder or a damaged disk may hand them in.

#include "Tests/Fuzz/XmlWalk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Engine::fuzzDocument(std::vector<char>(data, data + size));
    return 0;
}
