// The binary form: the mark stands in front of the input, so that every input reaches its reader.

#include "Tests/Fuzz/XmlWalk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<char> bytes(1, '>');
    bytes.insert(bytes.end(), data, data + size);
    Engine::fuzzDocument(std::move(bytes));
    return 0;
}
