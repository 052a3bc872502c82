#include "Game/Ui/MainMenu.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Profile.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/Ui/SelectProfile.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Logic.h"
#include "Engine/input/Input.h"
#include "Game/Ui/Credits.h"
#include "Game/Ui/FixedBack.h"
#include "Game/Ui/Game.h"
#include "Game/Ui/Options.h"
#include "Game/Ui/Screen.h"
#include "Game/Ui/YesNoExit.h"

using namespace Engine;

cMainMenu::cMainMenu()
    : cBack(nullptr),
      m_start(new cTextButton(this)),
      m_exit(new cTextButton(this)),
      m_change_user(new cTextButton(this)),
      m_options(new cTextButton(this)),
      m_credits(new cTextButton(this)),
      m_user_name(new cTextLine(this)),
      m_user_text(new cTextLine(this)) {
    ENGINE_MARK;
    m_start->setOnClick(onStart);
    m_exit->setOnClick(onExit);
    m_change_user->setOnClick(onChangeUser);
    m_options->setOnClick(onOptions);
    m_credits->setOnClick(onCredits);
    loadFixedBack();
    loadView(*this, "UI/MainMenu.xml");
    m_user_name->setLocalized(false);  // a player may be called by a word that has a translation
    hide();
}

void cMainMenu::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_start, xml, "StartButton");
    loadChild(*m_exit, xml, "ExitButton");
    loadChild(*m_change_user, xml, "ChangeUserButton");
    loadChild(*m_options, xml, "OptionsButton");
    loadChild(*m_credits, xml, "CreditsButton");
    loadChild(*m_user_name, xml, "UserName");
    loadChild(*m_user_text, xml, "UserText");
}

void cMainMenu::loadFixedBack() {
    if (!cFixedBack::getInstance())
        new cFixedBack;
}

void cMainMenu::discardFixedBack() {
    if (cFixedBack* back = cFixedBack::getInstance())
        discard(back, here());
}

void cMainMenu::process() {
    cBack::process();
    updateUserName();
}

void cMainMenu::updateUserName() {
    const cProfile* profile = cProfile::getInstance();
    if (profile && m_user_name->getText() != profile->getName())
        m_user_name->setText(profile->getName());
}

void cMainMenu::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onExit, this);
    if (cFixedBack* back = cFixedBack::getInstance())
        back->setPlayful(true);
}

void cMainMenu::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onExit, this);
    if (cFixedBack* back = cFixedBack::getInstance())
        back->setPlayful(false);
}

void cMainMenu::leaveFor(cView& screen) {
    hideTransparently();
    showScreen(screen);
}

// A key and a click may arrive in one frame, so each way out asks whether another one has been taken; and the menu is
// back while the screen that it opened last still fades away, so each asks whether its own is gone.

void cMainMenu::onExit(cView*) {
    cMainMenu* menu = getInstance();
    if (!menu->isLeaving() && !cYesNoExit::getInstance())
        menu->leaveFor(*new cYesNoExit(menu, onExitConfirm, onExitDecline));
}

void cMainMenu::onExitConfirm(cView*) {
    cLogic::getInstance()->exit();
}

void cMainMenu::onExitDecline(cView* parent) {
    discard(cYesNoExit::getInstance(), here());
    showScreen(*parent);
}

void cMainMenu::onStart(cView*) {
    cMainMenu* menu = getInstance();
    if (menu->isLeaving())
        return;
    menu->disable();
    menu->hide();
    discard(menu, here());
    discardFixedBack();
    new cGame(nullptr, false);
}

void cMainMenu::onOptions(cView*) {
    cMainMenu* menu = getInstance();
    if (!menu->isLeaving() && !cOptions::getInstance())
        menu->leaveFor(*new cOptions(menu));
}

void cMainMenu::onCredits(cView*) {
    cMainMenu* menu = getInstance();
    if (!menu->isLeaving() && !cCredits::getInstance())
        menu->leaveFor(*new cCredits);
}

// Players ----------------------------------------------------------------------------------------------------------

void cMainMenu::onChangeUser(cView*) {
    cMainMenu* menu = getInstance();
    if (menu->isLeaving() || cSelectProfile::getInstance())
        return;
    auto* screen = new cSelectProfile(nullptr, true);
    screen->setOnOk(onUserChosen);
    screen->setOnCancel(onUserKept);
    menu->leaveFor(*screen);
}

void cMainMenu::onUserChosen() {
    getInstance()->updateUserName();
    showScreen(*getInstance());
}

/// The player may have deleted every name, his own too; the menu needs one.
void cMainMenu::onUserKept() {
    const cProfile* profile = cProfile::getInstance();
    if (!profile || profile->getName().empty())
        cGame::askForName();
    else
        onUserChosen();
}
