#include "Game/Ui/GameSounds.h"

#include "Engine/Sound/Channel.h"
#include "Engine/Sound/SoundManager.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"

using namespace Engine;

cGameSounds::cGameSounds() : m_manager(cSoundManager::getInstance()) {
    ENGINE_MARK;
    if (!m_manager)
        return;
    iXML* xml = cResourceManager::getInstance()->getXML("Sounds/GameSounds.xml");
    const cResourceRef holder = cResourceRef::adopt(xml);
    loadXML(xml);
}

void cGameSounds::loadXML(const iXML* xml) {
    ENGINE_MARK;
    m_sounds.clear();
    iXML* list = nullptr;
    if (!xml->get("Sounds", list))
        return;
    for (UInt i = 0; i < list->getTagCount(); ++i) {
        iXML* tag = nullptr;
        list->get(i, tag);
        WString id;
        WString path;
        readKey(*tag, u"id", id);
        readKey(*tag, u"path", path);
        m_sounds[toNarrow(id)] = cResourceRef::adopt(cResourceManager::getInstance()->getSound(toNarrow(path)));
    }
}

iResource* cGameSounds::getSound(const String& id) const {
    const auto found = m_sounds.find(id);
    return found == m_sounds.end() ? nullptr : found->second.get();
}

std::unique_ptr<cChannel> cGameSounds::play(const String& id) const {
    return m_manager ? m_manager->playSound(getSound(id), true, true) : nullptr;
}

void cGameSounds::playImmediately(const String& id) const {
    if (m_manager)
        m_manager->playOnce(getSound(id));
}
