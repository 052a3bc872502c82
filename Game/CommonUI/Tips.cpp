#include "Game/CommonUI/Tips.h"

#include "Engine/core/CallStack.h"

using namespace Engine;

void cTips<cPicture>::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cPicture::loadXML(xml);
    iXML* tip = nullptr;
    if (xml->get("Tip", tip))
        loadTipXML(tip);
}

void cTips<cPicture>::process() {
    cPicture::process();
    const Bool inside = isPointInside(cLogic::getInstance()->getCursorPos());
    if (inside && !m_hovered && m_tip.canStart()) {
        updateTipData();
        m_tip.start();
    } else if (!inside && m_hovered) {
        m_tip.leave();
    }
    m_hovered = inside;
    m_tip.process(inside);
}

void cTips<cPicture>::disabled() {
    cPicture::disabled();
    m_hovered = false;
    m_tip.vanish();
}

void cTips<cPicture>::hid() {
    cPicture::hid();
    m_hovered = false;
    m_tip.vanish();
}

void cTips<cPicture>::updateTipData() {
    m_tip.updateTipData(dynamic_cast<iExtendedInfoTip*>(this));
}
