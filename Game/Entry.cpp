#include "Game/Entry.h"

#include <cstdio>
#include <memory>

#include "Engine/core/CallStack.h"
#include "Engine/core/Engine.h"
#include "Engine/core/Log.h"
#include "Engine/core/StringManager.h"
#include "Game/Ui/Preload.h"
#include "Game/Ui/StartScreen.h"

using namespace Engine;

namespace {

constexpr char restart_text[] = "Restart the game please.";
constexpr char report_title[] = "Error call stack:";

/// The game itself, on an engine that stands.
void play(cEngine& engine) {
    ENGINE_MARK;
    new cPreload([] { new cStartScreen; });
    engine.process();
}

/// A failure in the game: the player is told, the engine is taken down in order.
void reportGameFailure(Platform::iPlatform& platform) {
    const String report = String(currentFailure());  // what follows may fail too
    platform.showMessageBox(u"Error", cStringManager::getInstance()->getString(u"restart_game"));
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
        try {
            play(*engine);
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
