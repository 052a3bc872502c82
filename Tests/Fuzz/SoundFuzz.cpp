#include <cstdint>
#include <vector>

#include "Engine/core/MemoryFile.h"
#include "Engine/platform/sdl/SoundFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Engine::cMemoryFile file(std::vector<char>(data, data + size));
    Engine::Platform::sPcm pcm;
    if (Engine::Platform::readSoundFile(file, pcm) && (pcm.getFrames() < 1 || pcm.channels < 1 || pcm.channels > 2))
        __builtin_trap();
    return 0;
}
