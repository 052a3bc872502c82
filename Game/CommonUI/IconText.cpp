#include "Game/CommonUI/IconText.h"

#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/iXML.h"

using namespace Engine;

namespace {

enum eIconFrame : UInt { enabledIcon = 0, disabledIcon = 1 };

}  // namespace

cIconText::cIconText(cView* parent) : cTextLine(parent), m_icon(new cPicture(this)) {
}

void cIconText::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cTextLine::loadXML(xml);
    readKey(*xml, u"HasDisableView", m_has_disable_view);
    iXML* icon = nullptr;
    if (!xml->get("Icon", icon))
        throw "Can't find Icon";
    m_icon->loadXML(icon);
    m_icon->setPosition(getPosition() + m_icon->getPosition());
}

void cIconText::setAlpha(const Float& alpha) {
    cTextLine::setAlpha(alpha);
    m_icon->setAlpha(alpha);
}

void cIconText::setEnabledState(Bool enabled_state) {
    if (m_has_disable_view)
        m_icon->setAnimFrame(enabled_state ? enabledIcon : disabledIcon);
}
