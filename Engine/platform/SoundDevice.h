#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine::Platform {

/// How the sound device gets at the bytes of samples: it never touches the disk itself. A handle of 0 is no file; the
/// functions may throw. Calls come from inside loadSample() alone.
struct sSoundFileCallbacks {
    Int (*open)(const char* name) = nullptr;
    ULong (*read)(Int handle, void* buffer, ULong size) = nullptr;  ///< gives the bytes read
    Long (*seek)(Int handle, Long position, ULong mode) = nullptr;  ///< iFile's modes; gives the new place
    void (*close)(Int handle) = nullptr;
};

/// What one play of a sample begins with.
struct sSoundStart {
    Int sample = 0;
    Bool loop = false;
    Int group = 0;
    Int level = 100;    ///< 0 to 100, the loudness as a part of the sample's own
    Int frequency = 0;  ///< samples a second; 0: the sample's own
    Int pan = 50;       ///< 0 left, 50 middle, 100 right; only a sample of one channel can be moved
};

enum class eChannelStatus : Int { none = 0, playing = 1, paused = 2 };

/// What the sound manager asks of the machine: samples kept in memory, channels that play them, groups of channels that
/// are made louder and softer together. Levels are 0 to 100.
///
/// A channel is known by a number from 1 up, never given twice. One that came to its end stays known, with status none,
/// until its room is needed; an unknown one has status none, and everything else asked of it does nothing and gives 0.
class iSoundDevice {
public:
    virtual ~iSoundDevice() = default;

    /// False if there can be no sound; nothing else is called then.
    virtual Bool init() = 0;
    virtual Bool setFileCallbacks(const sSoundFileCallbacks& callbacks) = 0;
    virtual void stop() = 0;              ///< ends all channels
    virtual void pause(Bool paused) = 0;  ///< all that plays stands still
    /// Channels of the group keep their loudness relative to each other.
    virtual void setGroupVolume(Int group, Int level) = 0;

    /// The number of a sample, above 0; negative if the file can't be had or is no sound that we know.
    virtual Int loadSample(const String& name) = 0;
    virtual void unloadSample(Int sample) = 0;  ///< with the channels that play it
    virtual Int getSampleFrequency(Int sample) = 0;

    /// The number of the channel; negative if there is no such sample or nothing can give way to another channel.
    virtual Int play(const sSoundStart& start) = 0;
    virtual void startChannel(Int channel) = 0;  ///< from the beginning
    virtual void stopChannel(Int channel) = 0;   ///< it is unknown afterwards
    virtual void pauseChannel(Int channel, Bool paused) = 0;
    virtual eChannelStatus getChannelStatus(Int channel) = 0;
    virtual Int getChannelLength(Int channel) = 0;                   ///< milliseconds
    virtual Int getChannelPosition(Int channel) = 0;                 ///< milliseconds
    virtual void setChannelPosition(Int channel, Int position) = 0;  ///< milliseconds
    virtual Int getChannelVolume(Int channel) = 0;
    virtual void setChannelVolume(Int channel, Int volume) = 0;
    virtual Int getChannelPan(Int channel) = 0;
    virtual void setChannelPan(Int channel, Int pan) = 0;
};

}  // namespace Engine::Platform
