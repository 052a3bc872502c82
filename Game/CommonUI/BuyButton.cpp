#include "Game/CommonUI/BuyButton.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/iXML.h"
#include "Game/CommonUI/IconText.h"

using namespace Engine;

cBuyButton::cBuyButton(cView* parent) : cTextButton(parent) {
}

void cBuyButton::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cTextButton::loadXML(xml);
    iXML* tag = nullptr;
    if (!xml->get("Price", tag))
        return;
    if (!m_price)
        m_price = new cIconText(this);
    m_price->loadXML(tag);
    m_price->setPosition(getPosition() + m_price->getPosition());
    m_price->setDeep(getDeep() + m_price->getDeep());
    setStatePicture(getState());
}

void cBuyButton::setStatePicture(eButtonState state) {
    cTextButton::setStatePicture(m_can_be_bought ? state : eButtonState::disabled);
    if (m_price)
        m_price->setEnabledState(m_can_be_bought);
}

void cBuyButton::setAlpha(const Float& alpha) {
    cTextButton::setAlpha(alpha);
    if (m_price)
        m_price->setAlpha(alpha);
}

void cBuyButton::setCanBeBought(Bool can_be_bought) {
    m_can_be_bought = can_be_bought;
    setStatePicture(getState());
}
