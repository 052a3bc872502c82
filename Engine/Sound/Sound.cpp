#include "Engine/Sound/Sound.h"

#include "Engine/Sound/SoundManager.h"
#include "Engine/core/CallStack.h"

namespace Engine {

cSound::cSound(const String& name) : iResource(name) {
    ENGINE_MARK;
    if (cSoundManager* manager = cSoundManager::getInstance())
        m_sample = manager->loadResource(name);
}

cSound::~cSound() {
    if (cSoundManager* manager = cSoundManager::getInstance())
        manager->unloadResource(m_sample);
}

}  // namespace Engine
