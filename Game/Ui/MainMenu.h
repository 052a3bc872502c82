#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

/// The first screen with something to choose, over the fixed background. Every other screen that it opens takes its
/// place and gives it back.
///
/// Esc asks whether to leave, as the exit button does.
/// UI file "UI/MainMenu.xml": the keys of cBack and the child tags "StartButton", "ExitButton", "ChangeUserButton",
/// "OptionsButton", "CreditsButton" (cTextButton), "UserName" and "UserText" (cTextLine).
class cMainMenu : public Engine::cBack, public Engine::cSingleton<cMainMenu> {
public:
    /// Loads the fixed background too.
    cMainMenu();

    /// The background that the main menu and the players' screens share ("Ui/FixedBack.xml"), loaded once and kept
    /// until it is discarded.
    static void loadFixedBack();
    static void discardFixedBack();

    void loadXML(const Engine::iXML* xml) override;
    /// Keeps the name that is shown on the current player's.
    void process() override;
    void enabled() override;
    void disabled() override;

    void updateUserName();

private:
    static void onStart(Engine::cView* button);
    static void onExit(Engine::cView* view);
    static void onExitConfirm(Engine::cView* parent);
    static void onExitDecline(Engine::cView* parent);
    static void onChangeUser(Engine::cView* button);
    static void onUserChosen();
    static void onUserKept();
    static void onOptions(Engine::cView* button);
    static void onCredits(Engine::cView* button);

    Bool isLeaving() const { return getTransparencyMode() == fadeOutToHide || !isShown(); }
    void leaveFor(Engine::cView& screen);

    // Children of this view.
    Engine::cTextButton* m_start;
    Engine::cTextButton* m_exit;
    Engine::cTextButton* m_change_user;
    Engine::cTextButton* m_options;
    Engine::cTextButton* m_credits;
    Engine::cTextLine* m_user_name;
    Engine::cTextLine* m_user_text;
};
