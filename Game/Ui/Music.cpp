#include "Game/Ui/Music.h"

#include <memory>

#include "Engine/Sound/Channel.h"
#include "Engine/Sound/SoundManager.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"

using namespace Engine;

namespace {

struct sPiece {
    cResourceRef sample;
    std::unique_ptr<cChannel> channel;
};

/// Never ended by the program's exit(), which a lost display may call in the middle of a frame.
sPiece& playing() {
    static auto* piece = new sPiece;
    return *piece;
}

}  // namespace

void Music::play(const String& name) {
    ENGINE_MARK;
    stop();
    cSoundManager* sound = cSoundManager::getInstance();
    if (!sound || name.empty())
        return;
    playing().sample = cResourceRef::adopt(cResourceManager::getInstance()->getSound(name));
    playing().channel = sound->playMusic(playing().sample.get(), true, true);
}

void Music::stop() {
    playing().channel.reset();
    playing().sample = {};
}
