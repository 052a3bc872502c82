#pragma once

#include "Engine/Ui/TextButton.h"
#include "Game/Types.h"

class cIconText;

/// A button with a price that the player can pay or not. While he can't it looks disabled, but still listens.
class cBuyButton : public Engine::cTextButton {
public:
    explicit cBuyButton(Engine::cView* parent);
    cBuyButton(const cBuyButton&) = delete;
    cBuyButton& operator=(const cBuyButton&) = delete;

    /// The keys of cTextButton and the child tag "Price" (cIconText), whose place counts from the button's.
    void loadXML(const Engine::iXML* xml) override;
    void setStatePicture(Engine::eButtonState state) override;
    void setAlpha(const Float& alpha) override;

    Bool canBeBought() const { return m_can_be_bought; }
    void setCanBeBought(Bool can_be_bought);

private:
    cIconText* m_price = nullptr;  ///< a child of this view; null without one
    Bool m_can_be_bought = false;
};
