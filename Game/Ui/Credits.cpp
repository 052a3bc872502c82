#include "Game/Ui/Credits.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/input/Input.h"
#include "Game/Ui/MainMenu.h"
#include "Game/Ui/Screen.h"

using namespace Engine;

cCredits::cCredits() : cBack(nullptr), m_return(new cTextButton(this)) {
    ENGINE_MARK;
    m_return->setOnClick(onOk);
    loadView(*this, "UI/Credits.xml");
    hide();
}

void cCredits::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_return, xml, "ReturnButton");
}

void cCredits::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onOk, this);
}

void cCredits::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onOk, this);
}

void cCredits::onOk(cView*) {
    getInstance()->discardTransparently();
    if (cMainMenu* menu = cMainMenu::getInstance())
        showScreen(*menu);
}
