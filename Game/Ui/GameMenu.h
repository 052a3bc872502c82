#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

class cYesNoExt;

/// What the level in play does when its menu is left one way or another. All are needed.
struct sGameMenuActions {
    using fAction = void (*)();

    fAction resume;     ///< the game goes on
    fAction main_menu;  ///< the player has confirmed each of these
    fAction replay;
    fAction map;
};

/// The menu over a level. It knows nothing of the level but what to call there.
///
/// It lives with the level and is born hidden; opening it is showScreen(). Esc and Enter go on playing. The ways out of
/// the level ask first.
/// UI file "UI/GameMenu.xml": the keys of cBack and the child tags "ContinueButton", "MainMenuButton", "ReplayButton",
/// "MapButton", "OptionsButton" and "HelpButton" (cTextButton).
class cGameMenu : public Engine::cBack, public Engine::cSingleton<cGameMenu> {
public:
    explicit cGameMenu(const sGameMenuActions& actions);

    void loadXML(const Engine::iXML* xml) override;
    void enabled() override;
    void disabled() override;

private:
    static void onContinue(Engine::cView* view);
    static void onMainMenu(Engine::cView* button);
    static void onReplay(Engine::cView* button);
    static void onShowStrategicMap(Engine::cView* button);
    static void onOptions(Engine::cView* button);
    static void onHelp(Engine::cView* button);
    static void onMainMenuConfirm(Engine::cView* parent);
    static void onReplayConfirm(Engine::cView* parent);
    static void onMapConfirm(Engine::cView* parent);
    static void onQuestionDecline(Engine::cView* parent);
    void ask(const String& text_id, void (*on_yes)(Engine::cView*));
    void closeQuestion();
    void leaveBy(sGameMenuActions::fAction action);

    sGameMenuActions m_actions;
    cYesNoExt* m_question = nullptr;  ///< while one is open

    // Children of this view.
    Engine::cTextButton* m_continue;
    Engine::cTextButton* m_main_menu;
    Engine::cTextButton* m_replay;
    Engine::cTextButton* m_map;
    Engine::cTextButton* m_options;
    Engine::cTextButton* m_help;
};
