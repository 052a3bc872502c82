#include "Engine/Sound/Channel.h"

#include <cmath>

#include "Engine/Sound/SoundManager.h"
#include "Engine/core/CallStack.h"
#include "Engine/platform/SoundDevice.h"

namespace Engine {

namespace {

using Platform::eChannelStatus;

/// Null while there is no sound.
Platform::iSoundDevice* findDevice() {
    cSoundManager* manager = cSoundManager::getInstance();
    return manager && !manager->isDisabled() ? &manager->getDevice() : nullptr;
}

/// The device's value in the game's scale.
Int toOwn(Int value, Int group) {
    const Float factor = cSoundManager::getInstance()->getGroupFactor(group);
    return factor > 0.0f ? static_cast<Int>(std::lround(static_cast<Float>(value) / factor)) : 0;
}

Int toDevice(Int value, Int group) {
    return static_cast<Int>(
        std::lround(static_cast<Float>(value) * cSoundManager::getInstance()->getGroupFactor(group)));
}

}  // namespace

cChannel::cChannel(Int id, Int group) : m_id(id), m_group(group) {
    ENGINE_MARK;
    if (id < 0)
        throw String("Error sound channel creating. Error code:" + std::to_string(id));
}

cChannel::~cChannel() {
    if (auto* device = findDevice())
        device->stopChannel(m_id);
}

Bool cChannel::isPlaying() const {
    auto* device = findDevice();
    return device && device->getChannelStatus(m_id) == eChannelStatus::playing;
}

Bool cChannel::isPaused() const {
    auto* device = findDevice();
    return !device || device->getChannelStatus(m_id) == eChannelStatus::paused;
}

Int cChannel::getLength() const {
    auto* device = findDevice();
    return device ? device->getChannelLength(m_id) : 0;
}

Int cChannel::getPosition() const {
    auto* device = findDevice();
    return device ? device->getChannelPosition(m_id) : 0;
}

void cChannel::setPosition(Int position) {
    if (auto* device = findDevice())
        device->setChannelPosition(m_id, position);
}

Int cChannel::getVolume() const {
    auto* device = findDevice();
    return device ? toOwn(device->getChannelVolume(m_id), m_group) : 0;
}

void cChannel::setVolume(Int volume) {
    if (auto* device = findDevice())
        device->setChannelVolume(m_id, toDevice(volume, m_group));
}

Int cChannel::getPan() const {
    auto* device = findDevice();
    return device ? device->getChannelPan(m_id) : 0;
}

void cChannel::setPan(Int pan) {
    if (auto* device = findDevice())
        device->setChannelPan(m_id, pan);
}

void cChannel::play() {
    auto* device = findDevice();
    if (!device)
        return;
    if (device->getChannelStatus(m_id) == eChannelStatus::paused)
        device->pauseChannel(m_id, false);
    if (device->getChannelStatus(m_id) != eChannelStatus::playing)
        device->startChannel(m_id);
}

void cChannel::pause() {
    auto* device = findDevice();
    if (device && device->getChannelStatus(m_id) != eChannelStatus::paused)
        device->pauseChannel(m_id, true);
}

}  // namespace Engine
