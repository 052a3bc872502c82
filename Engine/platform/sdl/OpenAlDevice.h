#pragma once

#include <map>
#include <memory>

#include "Engine/platform/SoundDevice.h"

namespace Engine::Platform {

/// Sound mixed by OpenAL into memory: whoever owns the device takes the mix with render() and sends it where it is to
/// be heard, or measures it.
///
/// render() may be called from another thread than everything else.
class cOpenAlDevice : public iSoundDevice {
public:
    static constexpr Int frequency = 44100;  ///< frames a second of the mix
    static constexpr Int channel_count = 2;  ///< floats a frame, left and right

    cOpenAlDevice();
    ~cOpenAlDevice() override;

    Bool init() override;
    Bool setFileCallbacks(const sSoundFileCallbacks& callbacks) override;
    void stop() override;
    void pause(Bool paused) override;
    void setGroupVolume(Int group, Int level) override;
    Int loadSample(const String& name) override;
    void unloadSample(Int sample) override;
    Int getSampleFrequency(Int sample) override;
    Int play(const sSoundStart& start) override;
    void startChannel(Int channel) override;
    void stopChannel(Int channel) override;
    void pauseChannel(Int channel, Bool paused) override;
    eChannelStatus getChannelStatus(Int channel) override;
    Int getChannelLength(Int channel) override;
    Int getChannelPosition(Int channel) override;
    void setChannelPosition(Int channel, Int position) override;
    Int getChannelVolume(Int channel) override;
    void setChannelVolume(Int channel, Int volume) override;
    Int getChannelPan(Int channel) override;
    void setChannelPan(Int channel, Int pan) override;

    /// The next frames of the mix. Silence before init() and while paused; nothing moves on then.
    void render(Float* frames, Int count);

private:
    struct sContext;
    struct sVoice;
    struct sSample;

    sVoice* findVoice(Int channel);
    Float getGroupLevel(Int group) const;
    Bool makeRoom();
    void endVoice(Int channel);
    void applyGain(const sVoice& voice) const;

    std::unique_ptr<sContext> m_context;
    sSoundFileCallbacks m_callbacks;
    std::map<Int, sSample> m_samples;
    std::map<Int, sVoice> m_voices;       ///< the oldest first
    std::map<Int, Float> m_group_levels;  ///< 0 to 1; a group without an entry has 1
    Int m_next_sample = 1;
    Int m_next_channel = 1;
};

}  // namespace Engine::Platform
