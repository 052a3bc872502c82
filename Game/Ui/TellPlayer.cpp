#include "Game/Ui/TellPlayer.h"

#include "Engine/core/Engine.h"
#include "Engine/core/StringManager.h"

void tellPlayer(const WString& text) {
    const Engine::cStringManager* strings = Engine::cStringManager::getInstance();
    Engine::cEngine::getInstance()->getInstancePlatform()->showMessageBox(u"Error",
                                                                          strings ? strings->getString(text) : text);
}
