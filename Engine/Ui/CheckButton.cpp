#include "Engine/Ui/CheckButton.h"

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/Logic.h"

namespace Engine {

cCheckButton::cCheckButton(cView* parent) : cButton(parent), m_tick(new cPicture(this)) {
}

void cCheckButton::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cButton::loadXML(xml);
    loadChild(*m_tick, xml, "Tick");
    readKey(*xml, u"Checked", m_checked);
    updateTick();
}

void cCheckButton::unclicked() {
    // A press that is released elsewhere was taken back. Asked first: the click may lock or move the button.
    const Bool is_click = !isLocked() && pointInRect(cLogic::getInstance()->getCursorPos());
    cButton::unclicked();
    if (!is_click)
        return;
    m_checked = !m_checked;
    if (m_on_check)
        m_on_check(this, m_checked);
}

void cCheckButton::process() {
    cButton::process();
    updateTick();
}

void cCheckButton::updateTick() {
    if (m_tick->isShow() == m_checked)
        return;
    if (m_checked)
        m_tick->show();
    else
        m_tick->hide();
}

}  // namespace Engine
