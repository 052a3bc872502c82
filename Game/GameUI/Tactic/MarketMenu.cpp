#include "Game/GameUI/Tactic/MarketMenu.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/Ui/Scavenger.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/input/Input.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/GameLogic/buildings/Market.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameUI/Tactic/ControlPanel.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/GameUI/Tactic/TradeButton.h"

using namespace Engine;

cMarketMenu::cMarketMenu(cMarket& market) : cBack(nullptr), m_market(market) {
}

// What it shows ------------------------------------------------------------------------------------------------------

void cMarketMenu::setPrice(cPriceList* ctrl, const sResourceCargo& price, Bool dst) {
    const sResourceCargo& stock = cTacticMap::getInstance()->getGlobalCargo(false);
    const UInt count = std::min<UInt>(ctrl->getCount(), resource_count);
    for (UInt type = 0; type < count; ++type) {
        ctrl->setValue(type, price.amounts[type]);
        ctrl->setCompare(type, dst ? price.amounts[type] : stock.amounts[type]);
    }
    ctrl->updateView();
}

cTutuorialShopButton* cMarketMenu::addButton(const iXML* xml, const char* tag, cMarketTask& task, const Vector2& way) {
    auto* button = new cTutuorialShopButton(this);
    loadChild(*button, xml, tag);
    button->setPosition(button->getPosition() + way);
    button->setTask(task);
    button->setOnClick(onMarketTask);
    button->show();
    button->enable();
    m_buttons.push_back(button);
    return button;
}

cPriceList* cMarketMenu::addList(const iXML* xml, const char* tag, cTutuorialShopButton& button, const Vector2& place) {
    auto* list = new cPriceList(&button);
    loadChild(*list, xml, tag);
    button.addList(*list, place);
    return list;
}

void cMarketMenu::updateView() {
    for (cTutuorialShopButton* button : m_buttons) {
        const Bool allowed = button->getTask().isAllowed();
        button->setCanBeBought(allowed);
        button->setOscillating(allowed);
    }
}

const cTutuorialShopButton* cMarketMenu::findButton(const cMarketTask& task) const {
    const auto found = std::find_if(m_buttons.begin(), m_buttons.end(),
                                    [&task](const auto* button) { return &button->getTask() == &task; });
    return found == m_buttons.end() ? nullptr : *found;
}

// From its opening to its end ----------------------------------------------------------------------------------------

void cMarketMenu::showed() {
    cBack::showed();
    for (cTutuorialShopButton* button : m_buttons)
        button->getTask().setTicksParent(button);
    updateView();
}

void cMarketMenu::enabled() {
    cBack::enabled();
    cInput::getInstance()->bind(Control::esc_release, onContinue, this);
    cInput::getInstance()->bind(Control::enter_release, onContinue, this);
}

void cMarketMenu::disabled() {
    cBack::disabled();
    if (cInput* input = cInput::getInstance()) {
        input->unbind(Control::esc_release, onContinue, this);
        input->unbind(Control::enter_release, onContinue, this);
    }
}

/// The panel belongs to the level, which stands still; what it points out is to be seen all the same.
void cMarketMenu::process() {
    cBack::process();
    cTacticMap::getInstance()->getControlPanel().processLack();
}

void cMarketMenu::closeMenu() {
    ENGINE_MARK;
    if (m_is_closed)
        return;
    m_is_closed = true;
    for (cMarketTask* task : m_market.getTasks())
        task->takeTicksBack();
    hide();
    disable();
    discard(static_cast<cView*>(this), here());
    cTacticMap* map = cTacticMap::getInstance();
    map->deleteDraggedRoad();
    map->resume();
}

void cMarketMenu::onContinue(cView*) {
    if (cMarketMenu* menu = getInstance())
        menu->closeMenu();
}

void cMarketMenu::onMarketTask(cView* v) {
    if (cMarketMenu* menu = getInstance(); menu && !menu->m_is_closed)
        menu->order(static_cast<cTutuorialShopButton&>(*v));
}

void cMarketMenu::order(cTutuorialShopButton& button) {
    ENGINE_MARK;
    cMarketTask& task = button.getTask();
    if (!task.isAllowed()) {
        const cTacticMap* map = cTacticMap::getInstance();
        cTacticMap::getInstance()->showLack(task.getSrcCargo(), 0);
        for (UInt type = 0; button.getSrcList() && type < resource_count; ++type) {
            if (task.getSrcCargo().amounts[type] > map->getStock()[type] && type < button.getSrcList()->getCount())
                button.getSrcList()->blinkItem(type);
        }
        return;
    }
    if (!task.createUpgradeGoals())
        return;
    task.addTick();
    m_market.updateProgressPanel();
    closeMenu();
}
