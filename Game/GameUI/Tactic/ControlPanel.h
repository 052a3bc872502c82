#pragma once

#include <vector>

#include "Engine/Ui/AnimButton.h"
#include "Engine/Ui/Back.h"
#include "Game/CommonUI/Tips.h"
#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

namespace Engine {
class cTextLine;
}
class cIconText;
class cPanelBuyButton;
class cPriceList;
class cTutuorialBackButton;
class cTutuorialCatapultButton;
class cTutuorialIdolButton;
class cTutuorialManButton;

/// The bar over the level: what the player has, how many men, and what can be bought anywhere.
///
/// It is a child of the level's map, which tells it what has changed and then calls updateView(). It is seen from when
/// the first caravan has come until the level ends. The pointer over it means nothing to what lies below.
class cControlPanel : public Engine::cBack {
public:
    /// Sets itself up from "GameUI/ControlPanel.xml".
    explicit cControlPanel(Engine::cView* parent);

    /// The keys of cBack, then "CapacityWithMoney" (does money count among the items beside the capacity?) and the
    /// child tags "GlobalResources" (cPriceList, of the five goods), "ResourceCapacity" (cTextLine), "MenAmount"
    /// (cIconText), "MainMenuButton", "GoBackButton" (cAnimButton with a tip each), "BuyManButton", "IdolButton",
    /// "CatapultButton" (cPanelBuyButton) and "Bar" (cAnimButton: the ground of the panel, which keeps the pointer from
    /// what lies below).
    void loadXML(const Engine::iXML* xml) override;

    /// @param men       of the player
    /// @param capacity  of all his stores
    void setGlobalResources(const sResourceCargo& res, Int men, Int capacity);
    void setManCost(const sResourceCargo& cost);
    void setIdolCost(const sResourceCargo& cost);
    void setCatapultCost(const sResourceCargo& cost);
    void setManAllowed(Bool allowed) { m_man_allowed = allowed; }
    /// Does the player own the plan? Without it the button looks disabled, and its tip tells why.
    void setIdolAllowed(Bool allowed);
    void setCatapultAllowed(Bool allowed);
    /// Is there a level before this one? Without it there is no way back.
    void setBackAllowed(Bool allowed) { m_back_allowed = allowed; }
    Int getMen() const { return m_men; }
    void setMen(Int men) { m_men = men; }
    Int getMaxMen() const { return m_max_men; }
    void setMaxMen(Int max_men) { m_max_men = max_men; }  ///< below 1: no limit

    /// Shows what is possible now, and the number of men.
    void updateView();
    /// Points out what there is too little of, with the sound of a wrong action.
    void showLack(const sResourceCargo& need, Int men);
    void processLack();  ///< a frame of that while the level itself stands still
    /// Does any part of the panel that is shown hold the point of the screen?
    Bool pointInRect(const Vector2& pnt) const;

    const cPriceList& getResources() const { return *m_resources; }
    const Engine::cTextLine& getCapacityText() const { return *m_capacity; }
    const cIconText& getMenText() const { return *m_men_text; }
    const cPanelBuyButton& getManButton() const;
    const cPanelBuyButton& getIdolButton() const;
    const cPanelBuyButton& getCatapultButton() const;

private:
    static void onMainMenu(Engine::cView* view);
    static void onGoBack(Engine::cView* view);
    static void onBuyManClick(Engine::cView* view);
    static void onIdolClick(Engine::cView* view);
    static void onCatapultClick(Engine::cView* view);

    void updateButton(cPanelBuyButton& button, Bool can_be_bought);

    // Children of this view
    cPriceList* m_resources;
    Engine::cTextLine* m_capacity;
    cIconText* m_men_text;
    cTips<Engine::cAnimButton>* m_main_menu_button;
    cTutuorialBackButton* m_go_back_button;
    cTutuorialManButton* m_man_button;
    cTutuorialIdolButton* m_idol_button;
    cTutuorialCatapultButton* m_catapult_button;
    Engine::cAnimButton* m_bar;  ///< made last: a button that the pointer leaves hands it over to the bar

    std::vector<const Engine::cControl*> m_parts;  ///< all children that the file has placed

    Bool m_capacity_with_money = true;
    Bool m_man_allowed = false;
    Bool m_idol_allowed = false;
    Bool m_catapult_allowed = false;
    Bool m_back_allowed = false;
    Int m_men = 0;
    Int m_max_men = 0;
};
