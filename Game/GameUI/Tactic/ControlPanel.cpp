#include "Game/GameUI/Tactic/ControlPanel.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/TextLine.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/IconText.h"
#include "Game/CommonUI/NewControlEffect.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/GameUI/Tactic/PanelButtons.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameSounds.h"

using namespace Engine;

cControlPanel::cControlPanel(cView* parent)
    : cBack(parent),
      m_resources(new cPriceList(this)),
      m_capacity(new cTextLine(this)),
      m_men_text(new cIconText(this)),
      m_main_menu_button(new cTips<cAnimButton>(this)),
      m_go_back_button(new cTutuorialBackButton(this)),
      m_man_button(new cTutuorialManButton(this)),
      m_idol_button(new cTutuorialIdolButton(this)),
      m_catapult_button(new cTutuorialCatapultButton(this)),
      m_bar(new cAnimButton(this)) {
    ENGINE_MARK;
    loadView(*this, "GameUI/ControlPanel.xml");
    m_main_menu_button->setOnClick(onMainMenu);
    m_go_back_button->setOnClick(onGoBack);
    m_man_button->setOnClick(onBuyManClick);
    m_idol_button->setOnClick(onIdolClick);
    m_catapult_button->setOnClick(onCatapultClick);
    hide();
    enable();
}

void cControlPanel::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cBack::loadXML(xml);
    readKey(*xml, u"CapacityWithMoney", m_capacity_with_money);
    loadChild(*m_resources, xml, "GlobalResources");
    loadChild(*m_capacity, xml, "ResourceCapacity");
    loadChild(*m_men_text, xml, "MenAmount");
    loadChild(*m_main_menu_button, xml, "MainMenuButton");
    loadChild(*m_go_back_button, xml, "GoBackButton");
    loadChild(*m_man_button, xml, "BuyManButton");
    loadChild(*m_idol_button, xml, "IdolButton");
    loadChild(*m_catapult_button, xml, "CatapultButton");
    loadChild(*m_bar, xml, "Bar");
    m_parts.clear();
    getChildren().walk([this](cView* child) { m_parts.push_back(static_cast<const cControl*>(child)); });
}

// What the map tells -------------------------------------------------------------------------------------------------

void cControlPanel::setGlobalResources(const sResourceCargo& res, Int men, Int capacity) {
    ENGINE_MARK;
    const UInt count = std::min<UInt>(m_resources->getCount(), resource_count);
    for (UInt type = 0; type < count; ++type) {
        m_resources->setValue(type, res.amounts[type]);
        m_resources->setCompare(type, res.amounts[type]);
    }
    m_resources->updateView();
    m_men = men;
    String items = std::to_string(res.total(m_capacity_with_money));
    items.append("/").append(std::to_string(capacity));
    m_capacity->setText(toWide(items));
}

void cControlPanel::setManCost(const sResourceCargo& cost) {
    m_man_button->setCost(cost);
}

void cControlPanel::setIdolCost(const sResourceCargo& cost) {
    m_idol_button->setCost(cost);
}

void cControlPanel::setCatapultCost(const sResourceCargo& cost) {
    m_catapult_button->setCost(cost);
}

void cControlPanel::setIdolAllowed(Bool allowed) {
    m_idol_allowed = allowed;
    m_idol_button->setPlanned(allowed);
}

void cControlPanel::setCatapultAllowed(Bool allowed) {
    m_catapult_allowed = allowed;
    m_catapult_button->setPlanned(allowed);
}

// What is seen -------------------------------------------------------------------------------------------------------

void cControlPanel::updateView() {
    ENGINE_MARK;
    if (m_go_back_button->isShow() != m_back_allowed)
        m_go_back_button->setShown(m_back_allowed);
    updateButton(*m_man_button, m_man_allowed);
    const sResourceCargo& stock = cTacticMap::getInstance()->getGlobalCargo(false);
    updateButton(*m_idol_button, m_idol_allowed && stock.covers(m_idol_button->getCost()));
    updateButton(*m_catapult_button, m_catapult_allowed && stock.covers(m_catapult_button->getCost()));
    m_resources->show();
    m_capacity->show();
    String text = std::to_string(m_men);
    if (m_max_men >= 1)
        text.append("/").append(std::to_string(m_max_men));
    m_men_text->setText(toWide(text));
    m_men_text->show();
}

void cControlPanel::updateButton(cPanelBuyButton& button, Bool can_be_bought) {
    if (!button.isShow())
        button.show();
    if (can_be_bought != button.canBeBought()) {
        button.setCanBeBought(can_be_bought);
        button.setOscillating(can_be_bought);
        if (can_be_bought && button.isShown())
            cNewControlEffect::play(this, button, "Effects/UpAvailEffect.xml");
    }
    button.updateTipData();
}

void cControlPanel::showLack(const sResourceCargo& need, Int men) {
    ENGINE_MARK;
    playGameSound("wrong_action");
    const UInt count = std::min<UInt>(m_resources->getCount(), resource_count);
    for (UInt type = 0; type < count; ++type) {
        if (need.amounts[type] > m_resources->getValue(type))
            m_resources->blinkItem(type);
    }
    if (men > m_men)
        m_men_text->blinkIcon();
}

void cControlPanel::processLack() {
    m_resources->processItems();
    m_men_text->process();
}

Bool cControlPanel::pointInRect(const Vector2& pnt) const {
    return std::any_of(m_parts.begin(), m_parts.end(), [&](const cControl* part) {
        const Vector2 way = pnt - part->getPosition();
        const Vector2 half = part->getSize() * 0.5f;
        return part->isShow() && std::abs(way.x) <= half.x && std::abs(way.y) <= half.y;
    });
}

const cPanelBuyButton& cControlPanel::getManButton() const {
    return *m_man_button;
}

const cPanelBuyButton& cControlPanel::getIdolButton() const {
    return *m_idol_button;
}

const cPanelBuyButton& cControlPanel::getCatapultButton() const {
    return *m_catapult_button;
}

// What the player does -----------------------------------------------------------------------------------------------

void cControlPanel::onMainMenu(cView*) {
    cTacticMap::getInstance()->showGameMenu();
}

void cControlPanel::onGoBack(cView*) {
    cTacticMap::getInstance()->goBack();
}

void cControlPanel::onBuyManClick(cView*) {
    cTacticMap::getInstance()->buyMan();
}

void cControlPanel::onIdolClick(cView* view) {
    if (static_cast<cTutuorialIdolButton*>(view)->canBeBought())
        cTacticMap::getInstance()->showIdols(true);
}

void cControlPanel::onCatapultClick(cView* view) {
    if (static_cast<cTutuorialCatapultButton*>(view)->canBeBought())
        cTacticMap::getInstance()->showCatapults(true);
}
