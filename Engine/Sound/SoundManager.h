#pragma once

#include <map>
#include <memory>

#include "Engine/core/File.h"
#include "Engine/core/Resource.h"
#include "Engine/core/Singleton.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

class cChannel;
namespace Platform {
class iPlatform;
class iSoundDevice;
}  // namespace Platform

/// The two groups of channels, each with a volume of its own.
enum eSoundGroup : Int { groupSound = 1, groupMusic = 2 };

/// All sound of the program: plays samples in two groups, effects and music, each with a volume that is kept in the
/// settings (section "Sound", keys "Sound" and "Music").
///
/// Without a device, or with one that fails at the start, the manager is disabled: everything here and every cChannel
/// then does nothing, and what would give a channel gives null. Samples are read through cFileManager, so that they may
/// lie in packs.
class cSoundManager : public cSingleton<cSoundManager> {
public:
    /// Makes the resource manager, if there is one, load sounds. Never fails: without sound the program is silent.
    /// Throws the wide text "Can't setup squall file callbacks." if the device refuses to read through us.
    explicit cSoundManager(Platform::iPlatform& platform);
    /// Ends all sound and writes the volumes to the settings.
    virtual ~cSoundManager();

    /// A playing instance of a sample, or a paused one with start false. Null for no sample and while disabled.
    /// Throws "Error sound channel creating. Error code:" and the device's answer.
    virtual std::unique_ptr<cChannel> playSound(iResource* sample, Bool loop, Bool start);
    virtual void playOnce(iResource* sample);  ///< nothing can stop or move it
    virtual std::unique_ptr<cChannel> playMusic(iResource* sample, Bool loop, Bool start);
    virtual Bool isDisabled() const { return m_disabled; }
    virtual UInt getSoundVolume() const { return m_sound_volume; }
    /// @param volume  0 to 100. What is heard follows its square root: a volume of 25 is half as loud as one of 100.
    virtual void setSoundVolume(UInt volume);
    virtual UInt getMusicVolume() const { return m_music_volume; }
    virtual void setMusicVolume(UInt volume);
    virtual void setPause(Bool paused);  ///< of everything

    /// The device's number of a sample; 0 while disabled. Throws `Error loading sound file "<name>"`.
    Int loadResource(const String& name);
    void unloadResource(Int sample);

    /// What a channel of the group is multiplied with, 0 to 1; 0 for another group.
    Float getGroupFactor(Int group) const;
    Platform::iSoundDevice& getDevice() { return *m_device; }  ///< only while not disabled

    // How the device reads files. An unknown handle throws the wide text "Invalid handle.".
    static Int fileOpen(const char* name);  ///< 0 for a file that is not there
    static ULong fileRead(Int handle, void* buffer, ULong size);
    static Long fileSeek(Int handle, Long position, ULong mode);  ///< gives the new place, bytes
    static void fileClose(Int handle);

private:
    struct sOpenFile {
        std::unique_ptr<iFile> file;
        Long place = 0;
    };

    sOpenFile& findFile(Int handle);
    Int start(iResource* sample, Bool loop, Int group, UInt level);
    std::unique_ptr<cChannel> play(iResource* sample, Bool loop, Bool start_now, Int group, UInt level);
    void readSettings();
    void writeSettings() const;

    std::unique_ptr<Platform::iSoundDevice> m_device;
    Bool m_paused = false;
    std::map<Int, sOpenFile> m_files;  ///< by handle
    Int m_next_handle = 1;
    UInt m_music_volume = 100;
    UInt m_sound_volume = 100;
    UInt m_music_level = 100;  ///< what the device makes of the volume
    UInt m_sound_level = 100;
    Bool m_disabled = false;
};

}  // namespace Engine
