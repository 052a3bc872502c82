#include "Game/Ui/Music.h"

#include <memory>

#include "Engine/Sound/Channel.h"
#include "Engine/Sound/SoundManager.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/iXML.h"

using namespace Engine;

namespace {

constexpr char load_file[] = "UI/Load.xml";

struct sPiece {
    String name;  ///< empty in silence
    cResourceRef sample;
    std::unique_ptr<cChannel> channel;
};

/// Never ended by the program's exit(), which a lost display may call in the middle of a frame.
sPiece& playing() {
    static auto* piece = new sPiece;
    return *piece;
}

/// The n-th piece of a name.
String getPiece(const iXML& load, const char* tag_name, std::size_t n) {
    TAG_LIST tags;
    String name;
    if (n < load.get(tag_name, tags))
        readKey(*tags[n], u"Sound", name);
    return name;
}

/// What a function finds in the file of the pieces; without the file, silence.
template <class FIND>
void goOnWithFound(const FIND& find) {
    if (!cFileManager::getInstance()->isExist(load_file))
        return Music::stop();
    iXML* load = cResourceManager::getInstance()->getXML(load_file);
    const cResourceRef holder = cResourceRef::adopt(load);
    Music::goOnWith(find(*load));
}

}  // namespace

void Music::play(const String& name) {
    ENGINE_MARK;
    const String last = playing().name;
    stop();
    if (!last.empty() && last != name)
        cResourceManager::getInstance()->unloadUselessResource(last);  // a piece is the largest thing in memory
    cSoundManager* sound = cSoundManager::getInstance();
    if (!sound || name.empty())
        return;
    playing().sample = cResourceRef::adopt(cResourceManager::getInstance()->getSound(name));
    playing().channel = sound->playMusic(playing().sample.get(), true, true);
    playing().name = name;
}

void Music::goOnWith(const String& name) {
    if (name != playing().name)
        play(name);
}

void Music::stop() {
    playing().channel.reset();
    playing().sample = {};
    playing().name.clear();
}

String Music::getMenuPiece(const iXML& load) {
    return getPiece(load, "MainMenuMusic", 0);
}

String Music::getMapPiece(const iXML& load) {
    return getPiece(load, "GameMusic", 0);
}

String Music::getLevelPiece(const iXML& load, Int level) {
    TAG_LIST tags;
    const UInt count = load.get("GameMusic", tags);
    if (count < 2)
        return getMapPiece(load);
    return getPiece(load, "GameMusic", 1 + static_cast<UInt>(level) % (count - 1));
}

void Music::goOnWithMap() {
    ENGINE_MARK;
    goOnWithFound(getMapPiece);
}

void Music::goOnWithLevel(Int level) {
    ENGINE_MARK;
    goOnWithFound([level](const iXML& load) { return getLevelPiece(load, level); });
}
