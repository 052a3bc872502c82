#pragma once

#include <vector>

#include "Engine/Ui/Back.h"
#include "Engine/core/Singleton.h"
#include "Game/GameLogic/ResourceCargo.h"
#include "Game/Types.h"

class cMarket;
class cMarketTask;
class cPriceList;
class cTutuorialShopButton;

/// The window over the level that lists what a market offers at present. A click on a trade orders it and shuts the
/// window.
///
/// It is a screen of its own. The level stands still from before it is made until closeMenu(), which gives the level
/// its input back and ends the window. The marks of orders under way are in the window that long, each beside its
/// trade.
class cMarketMenu : public Engine::cBack, public Engine::cSingleton<cMarketMenu> {
public:
    /// @param market  outlives the window
    explicit cMarketMenu(cMarket& market);

    void process() override;
    void showed() override;
    void enabled() override;
    void disabled() override;

    /// Shows the goods of a price beside the player's own; with dst beside themselves.
    static void setPrice(cPriceList* ctrl, const sResourceCargo& price, Bool dst = false);
    void closeMenu();
    void updateView();                                                      ///< what can be had pulses
    const cTutuorialShopButton* findButton(const cMarketTask& task) const;  ///< null for one that is not on offer

protected:
    static void onMarketTask(cView* v);
    static void onContinue(cView* v);

    /// A button of its own for the trade, as that tag says, at its place there moved by so much.
    cTutuorialShopButton* addButton(const Engine::iXML* xml, const char* tag, cMarketTask& task, const Vector2& way);
    /// @param place  from the button's middle
    static cPriceList* addList(const Engine::iXML* xml, const char* tag, cTutuorialShopButton& button,
                               const Vector2& place);
    cMarket& getMarket() const { return m_market; }

private:
    void order(cTutuorialShopButton& button);

    cMarket& m_market;
    std::vector<cTutuorialShopButton*> m_buttons;  ///< children of this view
    Bool m_is_closed = false;                      ///< two clicks may arrive in one frame; the first one counts
};
