#include "Game/Ui/YesNoExt.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/input/Input.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

cYesNoExt::cYesNoExt(cView* _parent)
    : cBack(nullptr),
      m_owner(_parent),
      m_yes(new cTextButton(this)),
      m_no(new cTextButton(this)),
      m_text(new cTextLine(this)) {
    ENGINE_MARK;
    m_yes->setOnClick(onYes);
    m_no->setOnClick(onNo);
    loadView(*this, "UI/YesNo.xml");
    hide();
}

void cYesNoExt::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_yes, xml, "YesButton");
    loadChild(*m_no, xml, "NoButton");
    loadChild(*m_text, xml, "Text");
}

void cYesNoExt::setText(const String& id) {
    m_text->setText(cGameStrings::getInstance()->getString(id));
}

void cYesNoExt::enabled() {
    cBack::enabled();
    m_answered = false;
    if (isValid(m_owner))
        m_owner->disable();
    cInput* input = cInput::getInstance();
    input->bind(Control::enter_release, onYes, m_yes);
    input->bind(Control::space_release, onYes, m_yes);
    input->bind(Control::esc_release, onNo, m_no);
}

void cYesNoExt::disabled() {
    cBack::disabled();
    if (isValid(m_owner))
        m_owner->enable();
    cInput* input = cInput::getInstance();
    input->unbind(Control::enter_release, onYes, m_yes);
    input->unbind(Control::space_release, onYes, m_yes);
    input->unbind(Control::esc_release, onNo, m_no);
}

void cYesNoExt::process() {
    cBack::process();
    if (isValid(m_owner) && m_owner->isShown() && m_owner->isEnabled())
        m_owner->disable();
}

void cYesNoExt::onYes(cView* button) {
    auto* self = static_cast<cYesNoExt*>(button->getParent());
    self->answer(self->m_on_yes);
}

void cYesNoExt::onNo(cView* button) {
    auto* self = static_cast<cYesNoExt*>(button->getParent());
    self->answer(self->m_on_no);
}

void cYesNoExt::answer(fAnswer callback) {
    ENGINE_MARK;
    if (m_answered)
        return;
    m_answered = true;
    if (callback)
        callback(m_owner);
}
