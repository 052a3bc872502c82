#include "Engine/Sound/SoundManager.h"

#include <algorithm>
#include <cmath>

#include "Engine/Sound/Channel.h"
#include "Engine/Sound/Sound.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/Settings.h"
#include "Engine/platform/Platform.h"
#include "Engine/platform/SoundDevice.h"

namespace Engine {

namespace {

constexpr UInt full_volume = 100;
constexpr Int middle_pan = 50;

/// Loudness as the ear takes it grows with the square root of the setting.
UInt toLevel(UInt volume) {
    return static_cast<UInt>(std::sqrt(static_cast<Double>(volume) * 0.01) * 100.0);
}

}  // namespace

cSoundManager::cSoundManager(Platform::iPlatform& platform) : m_device(platform.createSoundDevice()) {
    ENGINE_MARK;
    if (!m_device || !m_device->init()) {
        m_device.reset();
        m_disabled = true;
    } else if (!m_device->setFileCallbacks({fileOpen, fileRead, fileSeek, fileClose})) {
        throw WString(u"Can't setup squall file callbacks.");
    }
    readSettings();
    if (cResourceManager* resources = cResourceManager::getInstance())
        resources->registerLoader(
            eResourceType::sound, [](const String& name) { return std::make_unique<cSound>(name); }, false);
}

cSoundManager::~cSoundManager() {
    if (!m_disabled)
        m_device->stop();
    if (cResourceManager* resources = cResourceManager::getInstance())
        resources->registerLoader(eResourceType::sound, nullptr, false);
    writeSettings();
}

void cSoundManager::readSettings() {
    UInt music = full_volume;
    UInt sound = full_volume;
    if (cSettings* settings = cSettings::getInstance()) {
        settings->getProperty("Sound", "Music", music);
        settings->getProperty("Sound", "Sound", sound);
    }
    setMusicVolume(music);
    setSoundVolume(sound);
}

void cSoundManager::writeSettings() const {
    if (cSettings* settings = cSettings::getInstance()) {
        settings->setProperty("Sound", "Music", m_music_volume);
        settings->setProperty("Sound", "Sound", m_sound_volume);
    }
}

void cSoundManager::setSoundVolume(UInt volume) {
    m_sound_volume = std::min(volume, full_volume);
    m_sound_level = toLevel(m_sound_volume);
    if (!m_disabled)
        m_device->setGroupVolume(groupSound, static_cast<Int>(m_sound_level));
}

void cSoundManager::setMusicVolume(UInt volume) {
    m_music_volume = std::min(volume, full_volume);
    m_music_level = toLevel(m_music_volume);
    if (!m_disabled)
        m_device->setGroupVolume(groupMusic, static_cast<Int>(m_music_level));
}

void cSoundManager::setPause(Bool paused) {
    if (paused == m_paused)
        return;
    m_paused = paused;
    if (!m_disabled)
        m_device->pause(paused);
}

Float cSoundManager::getGroupFactor(Int group) const {
    switch (group) {
        case groupSound:
            return static_cast<Float>(m_sound_level) * 0.01f;
        case groupMusic:
            return static_cast<Float>(m_music_level) * 0.01f;
        default:
            return 0.0f;
    }
}

// Playing ----------------------------------------------------------------------------------------------------------

Int cSoundManager::start(iResource* sample, Bool loop, Int group, UInt level) {
    const Int id = static_cast<cSound*>(sample)->getSample();
    return m_device->play({.sample = id,
                           .loop = loop,
                           .group = group,
                           .level = static_cast<Int>(level),
                           .frequency = m_device->getSampleFrequency(id),
                           .pan = middle_pan});
}

std::unique_ptr<cChannel> cSoundManager::play(iResource* sample, Bool loop, Bool start_now, Int group, UInt level) {
    ENGINE_MARK;
    if (m_disabled || !sample)
        return nullptr;
    auto channel = std::make_unique<cChannel>(start(sample, loop, group, level), group);
    if (!start_now)
        channel->pause();
    return channel;
}

std::unique_ptr<cChannel> cSoundManager::playSound(iResource* sample, Bool loop, Bool start) {
    return play(sample, loop, start, groupSound, m_sound_level);
}

std::unique_ptr<cChannel> cSoundManager::playMusic(iResource* sample, Bool loop, Bool start) {
    return play(sample, loop, start, groupMusic, m_music_level);
}

void cSoundManager::playOnce(iResource* sample) {
    if (!m_disabled && sample)
        start(sample, false, groupSound, m_sound_level);
}

// Samples and their files ------------------------------------------------------------------------------------------

Int cSoundManager::loadResource(const String& name) {
    ENGINE_MARK;
    if (m_disabled)
        return 0;
    const Int sample = m_device->loadSample(name);
    if (sample < 0)
        throw String("Error loading sound file \"" + name + "\"");
    return sample;
}

void cSoundManager::unloadResource(Int sample) {
    if (!m_disabled)
        m_device->unloadSample(sample);
}

cSoundManager::sOpenFile& cSoundManager::findFile(Int handle) {
    const auto found = m_files.find(handle);
    if (found == m_files.end())
        throw WString(u"Invalid handle.");
    return found->second;
}

Int cSoundManager::fileOpen(const char* name) {
    cFileManager& files = *cFileManager::getInstance();
    if (!files.isExist(name))
        return 0;
    cSoundManager& self = *getInstance();
    const Int handle = self.m_next_handle++;
    self.m_files[handle] = {files.open(name), 0};
    return handle;
}

ULong cSoundManager::fileRead(Int handle, void* buffer, ULong size) {
    sOpenFile& open = getInstance()->findFile(handle);
    const ULong read = open.file->read(buffer, size);
    open.place += static_cast<Long>(read);
    return read;
}

Long cSoundManager::fileSeek(Int handle, Long position, ULong mode) {
    sOpenFile& open = getInstance()->findFile(handle);
    const LongLong size = open.file->getSize();
    const LongLong base = mode == iFile::from_start ? 0 : mode == iFile::from_end ? size : LongLong{open.place};
    open.place = static_cast<Long>(std::clamp<LongLong>(base + position, 0, size));
    open.file->seek(open.place, iFile::from_start);
    return open.place;
}

void cSoundManager::fileClose(Int handle) {
    getInstance()->findFile(handle);
    getInstance()->m_files.erase(handle);
}

}  // namespace Engine
