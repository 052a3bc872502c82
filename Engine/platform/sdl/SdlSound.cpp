#include "Engine/platform/sdl/SdlSound.h"

namespace Engine::Platform {

namespace {

constexpr Uint16 buffer_frames = 1024;  // 23 ms

}  // namespace

cSdlSound::~cSdlSound() {
    closeOutput();
    if (m_started)
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

Bool cSdlSound::init() {
    m_started = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    // Asked for an output where there is none, some systems fill standard error with complaints.
    return m_started && SDL_GetNumAudioDevices(SDL_FALSE) != 0 && cOpenAlDevice::init() && openOutput();
}

Bool cSdlSound::openOutput() {
    SDL_AudioSpec wanted{};
    wanted.freq = frequency;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = channel_count;
    wanted.samples = buffer_frames;
    wanted.callback = fetch;
    wanted.userdata = this;
    m_output = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (m_output == 0)
        return false;
    SDL_PauseAudioDevice(m_output, 0);
    return true;
}

void cSdlSound::closeOutput() {
    if (m_output != 0)
        SDL_CloseAudioDevice(m_output);  // waits for a running fetch()
    m_output = 0;
}

/// On SDL's own thread.
void cSdlSound::fetch(void* self, Uint8* stream, int size) {
    constexpr int frame_size = channel_count * static_cast<int>(sizeof(Float));
    static_cast<cSdlSound*>(self)->render(reinterpret_cast<Float*>(stream), size / frame_size);
}

/// The next sound after an output was lost looks for another one.
Int cSdlSound::play(const sSoundStart& start) {
    if (m_lost) {
        m_lost = false;
        closeOutput();
        openOutput();
    }
    return cOpenAlDevice::play(start);
}

}  // namespace Engine::Platform
