#pragma once

#include <map>
#include <memory>

#include "Engine/core/ResourceRef.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

namespace Engine {
class cChannel;
class cSoundManager;
class iXML;
}  // namespace Engine

/// The game's own sounds by name, from "Sounds/GameSounds.xml": the child "Sounds" holds one child per sound with "id"
/// and "path". Without sound there are none, and nothing is read.
class cGameSounds : public Engine::cSingleton<cGameSounds> {
public:
    /// Throws what reading the file and loading its sounds throws.
    cGameSounds();

    void loadXML(const Engine::iXML* xml);  ///< instead of what there was

    Engine::iResource* getSound(const String& id) const;  ///< null for a name that is not there
    /// In a loop, until the channel is deleted. Null without sound and for a name that is not there.
    std::unique_ptr<Engine::cChannel> play(const String& id) const;
    void playImmediately(const String& id) const;  ///< once

private:
    std::map<String, Engine::cResourceRef> m_sounds;
    Engine::cSoundManager* m_manager;  ///< null without sound; outlives the sounds
};

/// A sound of the game, once. Nothing without the game's sounds.
inline void playGameSound(const String& id) {
    if (const cGameSounds* sounds = cGameSounds::getInstance())
        sounds->playImmediately(id);
}
