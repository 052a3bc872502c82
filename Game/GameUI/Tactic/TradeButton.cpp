#include "Game/GameUI/Tactic/TradeButton.h"

#include <algorithm>
#include <string>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Picture.h"
#include "Engine/core/CallStack.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/Ui/GameStrings.h"

using namespace Engine;

cTutuorialShopButton::cTutuorialShopButton(cView* parent) : cScaleOscillator(parent), m_icon(new cPicture(this)) {
    m_icon->hide();
}

void cTutuorialShopButton::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cScaleOscillator::loadXML(xml);
    loadChild(*m_icon, xml, "Icon");
    m_icon->setPosition(getPosition() + m_icon->getPosition());
    m_icon->setDeep(getDeep() + m_icon->getDeep());
    m_icon->hide();
}

void cTutuorialShopButton::setAlpha(const Float& alpha) {
    cScaleOscillator::setAlpha(alpha);
    m_icon->setAlpha(alpha);
}

void cTutuorialShopButton::setIcon(Int product) {
    m_icon->setAnimFrame(static_cast<UInt>(std::max(product, 0)));
    m_icon->show();
}

void cTutuorialShopButton::addList(cPriceList& list, const Vector2& place) {
    list.setPosition(getPosition() + place);
    list.show();
    list.enable();
}

void cTutuorialShopButton::updateInfoTipCargo(sInfoTip& info) {
    if (m_task && m_task->getProductId() >= 0)
        info.text = getGameString(String("product_") + std::to_string(m_task->getProductId()));
}
