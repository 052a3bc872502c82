#include "Game/GameLogic/buildings/Shop.h"

#include "Engine/core/CallStack.h"
#include "Game/GameUI/Tactic/ShopMenu.h"
#include "Game/GameUI/Tactic/TacticMap.h"
#include "Game/Ui/GameStrings.h"
#include "Game/Ui/Screen.h"

using namespace Engine;

void cShop::loadXmlState(const iXML* xml) {
    ENGINE_MARK;
    cMarket::loadXmlState(xml);
    loadTasks(xml);
}

void cShop::loadBinState(iArch& arch) {
    ENGINE_MARK;
    cMarket::loadBinState(arch);
    readTasks(arch);
}

void cShop::onMarketAction() {
    getMap().addToLevelStat(statShopDeals, 1);
}

void cShop::showMarketWindow() {
    ENGINE_MARK;
    getMap().suspend();
    showScreen(*new cShopMenu(this));
}

void cShop::updateInfoTipCargo(sInfoTip& info) {
    if (isPlayerConnected())
        info.text = getGameString("market");
}

void cShop::updateInfoTipPrice(sInfoTip& info) {
    if (isPlayerConnected())
        info.text = getGameString("market_visit");
}
