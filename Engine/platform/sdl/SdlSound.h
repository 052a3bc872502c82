#pragma once

#include <SDL.h>

#include "Engine/platform/sdl/OpenAlDevice.h"

namespace Engine::Platform {

/// The sound of the desktop: OpenAL's mix, fetched by SDL's audio. OpenAL itself can't take up another output when the
/// present one is lost (headphones pulled out), SDL can.
class cSdlSound : public cOpenAlDevice {
public:
    /// @param lost  set by the platform when an output has gone; outlives the device
    explicit cSdlSound(Bool& lost) : m_lost(lost) {}
    ~cSdlSound() override;

    Bool init() override;
    Int play(const sSoundStart& start) override;

private:
    static void fetch(void* self, Uint8* stream, int size);
    Bool openOutput();
    void closeOutput();

    Bool& m_lost;
    SDL_AudioDeviceID m_output = 0;
    Bool m_started = false;
};

}  // namespace Engine::Platform
