#include "Game/Entry.h"

#include <cstdio>
#include <memory>

#include "Engine/Ui/Profile.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Engine.h"
#include "Engine/core/Log.h"
#include "Engine/core/StringManager.h"
#include "Engine/core/TextConvert.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/GameSounds.h"
#include "Game/Ui/GameStrings.h"
#include "Game/Ui/Music.h"
#include "Game/Ui/Preload.h"

using namespace Engine;

namespace {

constexpr char restart_text[] = "Restart the game please.";
constexpr char report_title[] = "Error call stack:";

/// What lives as long as the game does, on an engine that stands. Goes before the engine, of which it needs most: the
/// player's properties are written here.
struct sGameManagers {
    std::unique_ptr<cGameSounds> sounds;
    std::unique_ptr<cGameStrings> strings;

    sGameManagers() = default;
    sGameManagers(const sGameManagers&) = delete;
    sGameManagers& operator=(const sGameManagers&) = delete;
    ~sGameManagers() {
        Music::stop();
        cProfile::close();
    }
};

/// The game itself.
void play(cEngine& engine, sGameManagers& managers) {
    ENGINE_MARK;
    cProfile::setInitHook(cGame::onInitProfile);
    managers.sounds = std::make_unique<cGameSounds>();
    managers.strings = std::make_unique<cGameStrings>();
    new cPreload(cGame::onProfileExist, cGame::onCreateNewProfile);
    engine.process();
    if (cGame* game = cGame::getInstance())
        game->saveAtExit();
}

/// What a player is told after a failure, in his language. The failure may have been that of the texts.
WString getRestartText() {
    const cGameStrings* strings = cGameStrings::getInstance();
    const WString text = strings ? strings->getString("restart_game") : toWide(restart_text);
    return cStringManager::getInstance()->getString(text);
}

/// A failure in the game: the player is told, the engine is taken down in order.
void reportGameFailure(Platform::iPlatform& platform) {
    const String report = String(currentFailure());  // what follows may fail too
    platform.showMessageBox(u"Error", getRestartText());
    reportError(report, report_title);
    callStackText().clear();
}

/// A failure outside the game, above all of the engine's construction.
void reportEngineFailure() {
    currentFailure();
    callStackText() += "\n";
    callStackText() += restart_text;
    std::fprintf(stderr, "brindle: %s\n", callStackText().substr(0, callStackText().find('\n')).c_str());
    reportError(callStackText(), report_title);
}

}  // namespace

Int runGame(Platform::iPlatform& platform) {
    try {
        sContext context;
        context.instance = &platform;
        const auto engine = std::make_unique<cEngine>(context);
        sGameManagers managers;
        try {
            play(*engine, managers);
        } catch (...) {
            reportGameFailure(platform);
        }
    } catch (const sAlreadyRunning&) {
        // The other one has been brought to the front.
    } catch (...) {
        reportEngineFailure();
    }
    return 0;
}
