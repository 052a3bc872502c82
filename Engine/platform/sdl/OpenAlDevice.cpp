#include "Engine/platform/sdl/OpenAlDevice.h"

#define AL_ALEXT_PROTOTYPES
#include <AL/al.h>
#include <AL/alc.h>
#include <AL/alext.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>

#include "Engine/core/CallStack.h"
#include "Engine/platform/sdl/SoundFile.h"

namespace Engine::Platform {

namespace {

constexpr std::size_t max_voices = 200;  // OpenAL has 256

template <class F>
F findFunction(const char* name) {
    return reinterpret_cast<F>(alcGetProcAddress(nullptr, name));
}

Float toGain(Int level) {
    return static_cast<Float>(std::clamp(level, 0, 100)) * 0.01f;
}

}  // namespace

/// OpenAL's mixer into memory.
struct cOpenAlDevice::sContext {
    ~sContext() {
        if (context) {
            alcMakeContextCurrent(nullptr);
            alcDestroyContext(context);
        }
        if (device)
            alcCloseDevice(device);
    }

    Bool open() {
        // Its own drivers stay asleep: they would look for hardware, and some complain that there is none.
        setenv("ALSOFT_DRIVERS", "null", 1);
        if (!alcIsExtensionPresent(nullptr, "ALC_SOFT_loopback"))
            return false;
        const auto open_device = findFunction<LPALCLOOPBACKOPENDEVICESOFT>("alcLoopbackOpenDeviceSOFT");
        render = findFunction<LPALCRENDERSAMPLESSOFT>("alcRenderSamplesSOFT");
        device = open_device && render ? open_device(nullptr) : nullptr;
        if (!device)
            return false;
        const ALCint attributes[] = {ALC_FORMAT_CHANNELS_SOFT,
                                     ALC_STEREO_SOFT,
                                     ALC_FORMAT_TYPE_SOFT,
                                     ALC_FLOAT_SOFT,
                                     ALC_FREQUENCY,
                                     frequency,
                                     ALC_HRTF_SOFT,
                                     ALC_FALSE,
                                     0};
        context = alcCreateContext(device, attributes);
        if (!context || !alcMakeContextCurrent(context))
            return false;
        alDistanceModel(AL_NONE);
        return alGetError() == AL_NO_ERROR;
    }

    ALCdevice* device = nullptr;
    ALCcontext* context = nullptr;
    LPALCRENDERSAMPLESSOFT render = nullptr;
    std::atomic<Bool> paused = false;
};

struct cOpenAlDevice::sSample {
    ALuint buffer = 0;
    Int frequency = 0;
    Int frames = 0;
};

struct cOpenAlDevice::sVoice {
    ALuint source = 0;
    Int sample = 0;
    Int group = 0;
    Bool loop = false;
    Float share = 1.0f;  ///< of the group's level
    Int pan = 50;

    ALint getState() const {
        ALint state = AL_STOPPED;
        alGetSourcei(source, AL_SOURCE_STATE, &state);
        return state;
    }
};

cOpenAlDevice::cOpenAlDevice() = default;

cOpenAlDevice::~cOpenAlDevice() {
    if (!m_context)
        return;
    stop();
    for (const auto& [id, sample] : m_samples)
        alDeleteBuffers(1, &sample.buffer);
}

Bool cOpenAlDevice::init() {
    auto context = std::make_unique<sContext>();
    if (!context->open())
        return false;
    m_context = std::move(context);
    return true;
}

Bool cOpenAlDevice::setFileCallbacks(const sSoundFileCallbacks& callbacks) {
    m_callbacks = callbacks;
    return callbacks.open && callbacks.read && callbacks.seek && callbacks.close;
}

void cOpenAlDevice::render(Float* frames, Int count) {
    if (!m_context || m_context->paused)
        std::fill_n(frames, count * channel_count, 0.0f);
    else
        m_context->render(m_context->device, frames, count);
}

void cOpenAlDevice::pause(Bool paused) {
    m_context->paused = paused;
}

void cOpenAlDevice::stop() {
    while (!m_voices.empty())
        endVoice(m_voices.begin()->first);
}

// Samples ----------------------------------------------------------------------------------------------------------

Int cOpenAlDevice::loadSample(const String& name) {
    ENGINE_MARK;
    sPcm pcm;
    if (!readSoundFile(name.c_str(), m_callbacks, pcm))
        return -1;
    alGetError();
    sSample sample{0, pcm.frequency, pcm.getFrames()};
    alGenBuffers(1, &sample.buffer);
    alBufferData(sample.buffer, pcm.channels == 2 ? AL_FORMAT_STEREO16 : AL_FORMAT_MONO16, pcm.samples.data(),
                 static_cast<ALsizei>(pcm.samples.size() * sizeof(short)), pcm.frequency);
    if (alGetError() != AL_NO_ERROR) {
        alDeleteBuffers(1, &sample.buffer);
        return -1;
    }
    m_samples[m_next_sample] = sample;
    return m_next_sample++;
}

void cOpenAlDevice::unloadSample(Int id) {
    const auto sample = m_samples.find(id);
    if (sample == m_samples.end())
        return;
    for (auto voice = m_voices.begin(); voice != m_voices.end();) {
        const Int channel = voice->first;
        const Bool plays_it = voice->second.sample == id;
        ++voice;
        if (plays_it)
            endVoice(channel);
    }
    alDeleteBuffers(1, &sample->second.buffer);
    m_samples.erase(sample);
}

Int cOpenAlDevice::getSampleFrequency(Int id) {
    const auto sample = m_samples.find(id);
    return sample == m_samples.end() ? 0 : sample->second.frequency;
}

// Channels ---------------------------------------------------------------------------------------------------------

Float cOpenAlDevice::getGroupLevel(Int group) const {
    const auto level = m_group_levels.find(group);
    return level == m_group_levels.end() ? 1.0f : level->second;
}

void cOpenAlDevice::setGroupVolume(Int group, Int level) {
    m_group_levels[group] = toGain(level);
    for (const auto& [channel, voice] : m_voices) {
        if (voice.group == group)
            applyGain(voice);
    }
}

void cOpenAlDevice::applyGain(const sVoice& voice) const {
    alSourcef(voice.source, AL_GAIN, std::min(voice.share * getGroupLevel(voice.group), 1.0f));
}

cOpenAlDevice::sVoice* cOpenAlDevice::findVoice(Int channel) {
    const auto found = m_voices.find(channel);
    return found == m_voices.end() ? nullptr : &found->second;
}

void cOpenAlDevice::endVoice(Int channel) {
    const auto found = m_voices.find(channel);
    if (found == m_voices.end())
        return;
    alSourceStop(found->second.source);
    alDeleteSources(1, &found->second.source);
    m_voices.erase(found);
}

/// One more voice can be had afterwards. What came to its end goes first, then the oldest that would end anyway.
Bool cOpenAlDevice::makeRoom() {
    if (m_voices.size() < max_voices)
        return true;
    const auto ended = [](const auto& voice) { return voice.second.getState() == AL_STOPPED; };
    const auto ends = [](const auto& voice) { return !voice.second.loop; };
    auto found = std::find_if(m_voices.begin(), m_voices.end(), ended);
    if (found == m_voices.end())
        found = std::find_if(m_voices.begin(), m_voices.end(), ends);
    if (found == m_voices.end())
        return false;
    endVoice(found->first);
    return true;
}

Int cOpenAlDevice::play(const sSoundStart& start) {
    const auto sample = m_samples.find(start.sample);
    if (sample == m_samples.end() || !makeRoom())
        return -1;
    sVoice voice{0, start.sample, start.group, start.loop, 1.0f, start.pan};
    alGetError();
    alGenSources(1, &voice.source);
    if (alGetError() != AL_NO_ERROR)
        return -1;
    alSourcei(voice.source, AL_BUFFER, static_cast<ALint>(sample->second.buffer));
    alSourcei(voice.source, AL_LOOPING, start.loop ? AL_TRUE : AL_FALSE);
    alSourcei(voice.source, AL_SOURCE_RELATIVE, AL_TRUE);
    alSourcei(voice.source, AL_DIRECT_CHANNELS_SOFT, AL_TRUE);
    if (start.frequency > 0 && start.frequency != sample->second.frequency)
        alSourcef(voice.source, AL_PITCH,
                  static_cast<Float>(start.frequency) / static_cast<Float>(sample->second.frequency));
    const Int channel = m_next_channel++;
    m_voices[channel] = voice;
    setChannelPan(channel, start.pan);
    setChannelVolume(channel, start.level);
    alSourcePlay(voice.source);
    return channel;
}

void cOpenAlDevice::startChannel(Int channel) {
    if (const sVoice* voice = findVoice(channel)) {
        alSourceRewind(voice->source);
        alSourcePlay(voice->source);
    }
}

void cOpenAlDevice::stopChannel(Int channel) {
    endVoice(channel);
}

void cOpenAlDevice::pauseChannel(Int channel, Bool paused) {
    const sVoice* voice = findVoice(channel);
    if (!voice)
        return;
    const ALint state = voice->getState();
    if (paused && state == AL_PLAYING)
        alSourcePause(voice->source);
    else if (!paused && state == AL_PAUSED)
        alSourcePlay(voice->source);
}

eChannelStatus cOpenAlDevice::getChannelStatus(Int channel) {
    const sVoice* voice = findVoice(channel);
    const ALint state = voice ? voice->getState() : AL_STOPPED;
    return state == AL_PLAYING  ? eChannelStatus::playing
           : state == AL_PAUSED ? eChannelStatus::paused
                                : eChannelStatus::none;
}

Int cOpenAlDevice::getChannelLength(Int channel) {
    const sVoice* voice = findVoice(channel);
    if (!voice)
        return 0;
    const sSample& sample = m_samples.at(voice->sample);
    return static_cast<Int>(LongLong{sample.frames} * 1000 / sample.frequency);
}

Int cOpenAlDevice::getChannelPosition(Int channel) {
    const sVoice* voice = findVoice(channel);
    if (!voice)
        return 0;
    ALfloat seconds = 0.0f;
    alGetSourcef(voice->source, AL_SEC_OFFSET, &seconds);
    return static_cast<Int>(std::lround(seconds * 1000.0f));
}

void cOpenAlDevice::setChannelPosition(Int channel, Int position) {
    if (const sVoice* voice = findVoice(channel))
        alSourcef(voice->source, AL_SEC_OFFSET,
                  static_cast<Float>(std::clamp(position, 0, std::max(getChannelLength(channel) - 1, 0))) * 0.001f);
}

Int cOpenAlDevice::getChannelVolume(Int channel) {
    const sVoice* voice = findVoice(channel);
    return voice ? static_cast<Int>(std::lround(voice->share * getGroupLevel(voice->group) * 100.0f)) : 0;
}

/// In a group that is silent a channel keeps its share, so that it is heard when the group is.
void cOpenAlDevice::setChannelVolume(Int channel, Int volume) {
    sVoice* voice = findVoice(channel);
    if (!voice)
        return;
    const Float group_level = getGroupLevel(voice->group);
    if (group_level > 0.0f)
        voice->share = toGain(volume) / group_level;
    applyGain(*voice);
}

Int cOpenAlDevice::getChannelPan(Int channel) {
    const sVoice* voice = findVoice(channel);
    return voice ? voice->pan : 0;
}

/// A place on a half circle in front of the listener.
void cOpenAlDevice::setChannelPan(Int channel, Int pan) {
    sVoice* voice = findVoice(channel);
    if (!voice)
        return;
    voice->pan = std::clamp(pan, 0, 100);
    const Float side = static_cast<Float>(voice->pan - 50) / 50.0f;
    alSource3f(voice->source, AL_POSITION, side, 0.0f, -std::sqrt(std::max(0.0f, 1.0f - side * side)));
}

}  // namespace Engine::Platform
