#include "Engine/Ui/YesNo.h"

#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/input/Input.h"

namespace Engine {

cYesNo::cYesNo(cView* owner, const String& file)
    : cBack(nullptr),
      m_owner(owner),
      m_owner_was_enabled(owner && owner->isEnabled()),
      m_yes(new cTextButton(this)),
      m_no(new cTextButton(this)),
      m_text(new cMultilineText(this)) {
    ENGINE_MARK;
    m_yes->setOnClick(onYes);
    m_no->setOnClick(onNo);
    loadView(*this, file);
    hide();
    enable();
    absoluteEnable();
    if (m_owner) {
        m_owner->lock();
        m_owner->disable();
    }
}

cYesNo::~cYesNo() {
    freeOwner();
}

void cYesNo::freeOwner() {
    if (isValid(m_owner)) {
        m_owner->unlock();
        if (m_owner_was_enabled)
            m_owner->enable();
    }
    m_owner = nullptr;
}

void cYesNo::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    loadChild(*m_yes, xml, "YesButton");
    loadChild(*m_no, xml, "NoButton");
    loadChild(*m_text, xml, "Text");
}

void cYesNo::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onEscape, this);
    cInput::getInstance()->bind(Control::enter_release, onEnter, this);
}

void cYesNo::disabled() {
    cBack::disabled();
    cInput::getInstance()->unbind(Control::esc_release, onEscape, this);
    cInput::getInstance()->unbind(Control::enter_release, onEnter, this);
}

void cYesNo::onYes(cView* view) {
    static_cast<cYesNo*>(view->getParent())->answer(eResult::yes);
}

void cYesNo::onNo(cView* view) {
    static_cast<cYesNo*>(view->getParent())->answer(eResult::no);
}

void cYesNo::onEnter(cView* view) {
    static_cast<cYesNo*>(view)->answer(eResult::yes);
}

void cYesNo::onEscape(cView* view) {
    static_cast<cYesNo*>(view)->answer(eResult::no);
}

/// Two answers may arrive in one frame; the first one counts.
void cYesNo::answer(eResult result) {
    if (m_result != eResult::none)
        return;
    m_result = result;
    hideTransparently();
}

void cYesNo::absoluteProcess() {
    cBack::absoluteProcess();
    if (m_result == eResult::none || isShow())
        return;
    absoluteDisable();
    const ON_ANSWER callback = m_result == eResult::yes ? m_on_yes : m_on_no;
    cView* owner = m_owner;
    const Bool is_owner_gone = owner && !isValid(owner);
    freeOwner();
    if (callback && !is_owner_gone)
        callback(owner);
    discard(this, here());
}

}  // namespace Engine
