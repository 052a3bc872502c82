#include "Engine/platform/sdl/CreateSdlPlatform.h"
#include "Game/Entry.h"

int main() {
    const auto platform = Engine::Platform::createSdlPlatform();
    return runGame(*platform);
}
