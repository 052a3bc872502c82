#pragma once

#include "Game/CommonUI/BuyButton.h"
#include "Game/CommonUI/InfoTip.h"
#include "Game/CommonUI/ScaleOscillator.h"
#include "Game/CommonUI/Tips.h"

namespace Engine {
class cPicture;
}
class cMarketTask;
class cPriceList;

/// One trade in a market's window: its picture or its goods, and its price. It pulses while the trade can be had; its
/// tip names the plan.
class cTutuorialShopButton : public cScaleOscillator<cTips<cBuyButton>>, public iExtendedInfoTip {
public:
    explicit cTutuorialShopButton(Engine::cView* parent);

    /// The keys of cBuyButton and cScaleOscillator, then the child tags "Tip" (cTipPanel) and "Icon" (cPicture, a frame
    /// for each product), whose place counts from the button's.
    void loadXML(const Engine::iXML* xml) override;
    void setAlpha(const Float& alpha) override;
    void updateInfoTipCargo(sInfoTip& info) override;
    void updateInfoTipPrice(sInfoTip&) override {}

    void setTask(cMarketTask& task) { m_task = &task; }
    cMarketTask& getTask() const { return *m_task; }
    void setIcon(Int product);
    /// Takes the list along.
    /// @param place  from the button's middle
    void addList(cPriceList& list, const Vector2& place);
    void setSrcList(cPriceList& list) { m_src_list = &list; }
    cPriceList* getSrcList() const { return m_src_list; }

private:
    Engine::cPicture* m_icon;          ///< a child of this view
    cPriceList* m_src_list = nullptr;  ///< a child of this view: the price
    cMarketTask* m_task = nullptr;     ///< what a click orders; outlives the window
};
