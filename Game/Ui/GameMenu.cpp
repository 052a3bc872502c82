#include "Game/Ui/GameMenu.h"

#include <utility>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/input/Input.h"
#include "Game/Ui/Help.h"
#include "Game/Ui/Options.h"
#include "Game/Ui/Screen.h"
#include "Game/Ui/YesNoExt.h"

using namespace Engine;

cGameMenu::cGameMenu(const sGameMenuActions& actions)
    : cBack(nullptr),
      m_actions(actions),
      m_continue(new cTextButton(this)),
      m_main_menu(new cTextButton(this)),
      m_replay(new cTextButton(this)),
      m_map(new cTextButton(this)),
      m_options(new cTextButton(this)),
      m_help(new cTextButton(this)) {
    ENGINE_MARK;
    m_continue->setOnClick(onContinue);
    m_main_menu->setOnClick(onMainMenu);
    m_replay->setOnClick(onReplay);
    m_map->setOnClick(onShowStrategicMap);
    m_options->setOnClick(onOptions);
    m_help->setOnClick(onHelp);
    loadView(*this, "UI/GameMenu.xml");
    hide();
}

void cGameMenu::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_continue, xml, "ContinueButton");
    loadChild(*m_main_menu, xml, "MainMenuButton");
    loadChild(*m_replay, xml, "ReplayButton");
    loadChild(*m_map, xml, "MapButton");
    loadChild(*m_options, xml, "OptionsButton");
    loadChild(*m_help, xml, "HelpButton");
}

void cGameMenu::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onContinue, this);
    cInput::getInstance()->bind(Control::enter_release, onContinue, this);
}

void cGameMenu::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onContinue, this);
    cInput::getInstance()->unbind(Control::enter_release, onContinue, this);
}

void cGameMenu::onContinue(cView*) {
    ENGINE_MARK;
    if (!getInstance()->isShown())
        return;  // a question that was answered has enabled it once more
    getInstance()->hide();
    getInstance()->disable();
    getInstance()->m_actions.resume();
}

// Questions --------------------------------------------------------------------------------------------------------

void cGameMenu::ask(const String& text_id, void (*on_yes)(cView*)) {
    ENGINE_MARK;
    if (m_question)
        return;
    m_question = new cYesNoExt(this);
    m_question->setText(text_id);
    m_question->setYes(on_yes);
    m_question->setNo(onQuestionDecline);
    showScreen(*m_question);
}

void cGameMenu::closeQuestion() {
    discard(std::exchange(m_question, nullptr), here());
}

/// The menu goes with the level.
void cGameMenu::leaveBy(sGameMenuActions::fAction action) {
    closeQuestion();
    hide();
    action();
}

void cGameMenu::onMainMenu(cView*) {
    getInstance()->ask("sure_exit", onMainMenuConfirm);
}

void cGameMenu::onReplay(cView*) {
    getInstance()->ask("sure_replay", onReplayConfirm);
}

void cGameMenu::onShowStrategicMap(cView*) {
    getInstance()->ask("sure_exit", onMapConfirm);
}

void cGameMenu::onMainMenuConfirm(cView*) {
    getInstance()->leaveBy(getInstance()->m_actions.main_menu);
}

void cGameMenu::onReplayConfirm(cView*) {
    getInstance()->leaveBy(getInstance()->m_actions.replay);
}

void cGameMenu::onMapConfirm(cView*) {
    getInstance()->leaveBy(getInstance()->m_actions.map);
}

void cGameMenu::onQuestionDecline(cView* parent) {
    getInstance()->closeQuestion();
    parent->enable();
}

// Screens over the menu --------------------------------------------------------------------------------------------

// The menu is back while they still fade away: until they are gone it opens none anew.

void cGameMenu::onOptions(cView*) {
    if (cOptions::getInstance())
        return;
    getInstance()->hideTransparently();
    showScreen(*new cOptions(getInstance()));
}

void cGameMenu::onHelp(cView*) {
    if (cHelp::getInstance())
        return;
    getInstance()->hideTransparently();
    showScreen(*new cHelp(nullptr, 0));
}
