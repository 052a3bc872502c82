#include "Game/GameUI/Tactic/ShopMenu.h"

#include <algorithm>

#include "Engine/Ui/LoadView.h"
#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Game/CommonUI/PriceList.h"
#include "Game/GameLogic/buildings/MarketTask.h"
#include "Game/GameLogic/buildings/Shop.h"
#include "Game/GameUI/Tactic/TradeButton.h"

using namespace Engine;

namespace {

/// A list stands where its tag puts it, seen from the button.
Vector2 readPlace(const iXML* xml, const char* tag_name) {
    Vector2 res{0.0f, 0.0f};
    iXML* tag = nullptr;
    if (xml->get(tag_name, tag))
        readKey(*tag, u"position", res);
    return res;
}

}  // namespace

cShopMenu::cShopMenu(cShop* shop)
    : cMarketMenu(*shop),
      m_continue(new cTextButton(this)),
      m_plans_text(new cTextLine(this)),
      m_goods_text(new cTextLine(this)),
      m_nothing_text(new cTextLine(this)) {
    ENGINE_MARK;
    m_continue->setOnClick(onContinue);
    loadView(*this, "GameLogic/ShopMenu.xml");
    hide();
}

void cShopMenu::loadXML(const iXML* xml) {
    ENGINE_MARK;
    cMarketMenu::loadXML(xml);
    readKey(*xml, u"upgrade_tasks_distance", m_upgrade_tasks_distance);
    readKey(*xml, u"upgrade_price_offset", m_upgrade_price_offset);
    readKey(*xml, u"market_tasks_distance", m_market_tasks_distance);
    readKey(*xml, u"market_tasks_columns", m_market_tasks_columns);
    loadChild(*m_continue, xml, "ContinueButton");
    loadChild(*m_plans_text, xml, "UpgradesText");
    loadChild(*m_goods_text, xml, "MarketText");
    loadChild(*m_nothing_text, xml, "NothingText");
    std::vector<cMarketTask*> plans = getMarket().getActiveTasks();
    std::vector<cMarketTask*> goods;
    std::copy_if(plans.begin(), plans.end(), std::back_inserter(goods),
                 [](const auto* task) { return !task->isPlan(); });
    std::erase_if(plans, [](const auto* task) { return !task->isPlan(); });
    addPlans(xml, plans);
    addGoods(xml, goods);
    m_plans_text->setShown(!plans.empty());
    m_goods_text->setShown(!goods.empty());
    m_nothing_text->setShown(plans.empty() && goods.empty());
}

/// In a row, with its middle where the button's tag has its place.
void cShopMenu::addPlans(const iXML* xml, const std::vector<cMarketTask*>& tasks) {
    Vector2 way = m_upgrade_tasks_distance * (static_cast<Float>(tasks.size()) - 1.0f) * -0.5f;
    for (cMarketTask* task : tasks) {
        cTutuorialShopButton* button = addButton(xml, "UpgradeTaskButton", *task, way);
        setButtonIcon(*button);
        cPriceList* price = addList(xml, "SrcPriceList", *button, m_upgrade_price_offset);
        setPrice(price, task->getSrcCargo());
        button->setSrcList(*price);
        way += m_upgrade_tasks_distance;
    }
}

/// Row by row, from where the button's tag has its place.
void cShopMenu::addGoods(const iXML* xml, const std::vector<cMarketTask*>& tasks) {
    const Int columns = std::max(m_market_tasks_columns, 1);
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        cMarketTask* task = tasks[i];
        const Int row = static_cast<Int>(i) / columns;
        const Vector2 cell(static_cast<Float>(static_cast<Int>(i) - row * columns), static_cast<Float>(row));
        const char* tag = task->isRepeated() ? "MarketTaskButtonMany" : "MarketTaskButtonOne";
        cTutuorialShopButton* button = addButton(xml, tag, *task, cell * m_market_tasks_distance);
        cPriceList* price = addList(xml, "SrcPriceList", *button, readPlace(xml, "SrcPriceList"));
        setPrice(price, task->getSrcCargo());
        button->setSrcList(*price);
        setPrice(addList(xml, "DstPriceList", *button, readPlace(xml, "DstPriceList")), task->getDstCargo(), true);
    }
}

void cShopMenu::setButtonIcon(cTutuorialShopButton& button) {
    button.setIcon(button.getTask().getProductId());
}
