#pragma once

#include "Engine/Ui/TextButton.h"
#include "Game/GameUI/Tactic/MarketMenu.h"

class cShop;

/// A shop's window: the plans on offer in a row, below them goods for goods.
class cShopMenu : public cMarketMenu {
public:
    /// Sets itself up from "GameLogic/ShopMenu.xml", for what the shop offers now.
    explicit cShopMenu(cShop* shop);

    /// The keys of cBack, then "upgrade_tasks_distance" (from plan to plan, units), "upgrade_price_offset" (of a plan's
    /// price from its button), "market_tasks_distance" (from row to row and column to column of the goods),
    /// "market_tasks_columns", and the child tags "UpgradeTaskButton", "MarketTaskButtonMany", "MarketTaskButtonOne"
    /// (cTutuorialShopButton: a plan, a trade that can be repeated, one that can't), "SrcPriceList", "DstPriceList"
    /// (cPriceList each, whose place counts from the trade's button), "UpgradesText", "MarketText", "NothingText"
    /// (cTextLine each, seen with what they head) and "ContinueButton" (cTextButton).
    void loadXML(const Engine::iXML* xml) override;

private:
    void addPlans(const Engine::iXML* xml, const std::vector<cMarketTask*>& tasks);
    void addGoods(const Engine::iXML* xml, const std::vector<cMarketTask*>& tasks);
    static void setButtonIcon(cTutuorialShopButton& button);

    // Children of this view
    Engine::cTextButton* m_continue;
    Engine::cTextLine* m_plans_text;
    Engine::cTextLine* m_goods_text;
    Engine::cTextLine* m_nothing_text;
    Vector2 m_upgrade_tasks_distance{90.0f, 0.0f};
    Vector2 m_upgrade_price_offset{0.0f, 50.0f};
    Vector2 m_market_tasks_distance{280.0f, 60.0f};
    Int m_market_tasks_columns = 2;
};
