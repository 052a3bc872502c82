#pragma once

#include <array>
#include <vector>

#include "Game/Types.h"

/// What an object tells its tip about one half of it, the cargo or the price.
struct sInfoTip {
    /// Amounts in the order money, food, wood, stone, iron.
    std::array<Int, 5> cargo{};
    Int men = -1;                  ///< -1: none
    WString text;                  ///< caption of this half; empty leaves the caption as it is
    Bool compare_global = false;   ///< beside what the player has, not beside itself
    Bool only_icons = false;       ///< no numbers
    Bool show_plus = false;        ///< "+" in front of what is above 0
    Vector2 position{0.0f, 0.0f};  ///< cPriceList's base
    std::vector<Int> products;     ///< numbers of products to show, with use_products
    Bool use_products = false;
};

/// Something that can tell a tip about itself. Both records come empty.
class iExtendedInfoTip {
public:
    virtual void updateInfoTipCargo(sInfoTip& info) = 0;
    virtual void updateInfoTipPrice(sInfoTip& info) = 0;

protected:
    ~iExtendedInfoTip() = default;
};
