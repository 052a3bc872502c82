#include "Game/CommonUI/ProgressFloatExt.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/iXML.h"

using namespace Engine;

void cProgressFloatExt::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cProgressFloat::loadXML(xml);
    iXML* tag = nullptr;
    if (!xml->get("Back", tag))
        return;
    if (!m_back)
        m_back = new cPicture(this);
    m_back->loadXML(tag);
    m_back->setPosition(getPosition() + m_back->getPosition());
    m_back->setDeep(getDeep() - 1.0f + m_back->getDeep());
    m_back->show();
}

void cProgressFloatExt::setAlpha(const Float& alpha) {
    cProgressFloat::setAlpha(alpha);
    if (m_back)
        m_back->setAlpha(alpha);
}
