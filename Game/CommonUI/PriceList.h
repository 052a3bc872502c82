#pragma once

#include <vector>

#include "Engine/Ui/Control.h"
#include "Game/CommonUI/ScreenSide.h"
#include "Game/Types.h"

class cIconText;

/// Amounts of goods as icons with numbers: the five resources, behind them a number of men, or any other list.
///
/// Each item has a value and one to compare it with; a value above the latter is more than there is, and looks so.
/// Changes are shown by updateView().
class cPriceList : public Engine::cControl {
public:
    using cControl::cControl;

    /// The keys of cControl, then "DisableTextColor", "EnableTextColor", "ShowIfZero", "ShowWithX" ("x" in front of a
    /// number), "ShowWithPlus" ("+" in front of one above 0), "ShowOnlyIcons", "Offset" (from place to place of the
    /// compact layout), "Base" (its start, from the list's position), "Compact", "cursor_offset", and the child tag
    /// "List", each child of which is a cIconText.
    void loadXML(const Engine::iXML* xml) override;
    void setAlpha(const Float& alpha) override;

    UInt getCount() const { return static_cast<UInt>(m_items.size()); }
    /// These throw "cPriceList: no item <index>".
    void setValue(UInt index, Int value);
    Int getValue(UInt index) const;
    void setCompare(UInt index, Int value);
    Int getCompare(UInt index) const;
    const cIconText& getItem(UInt index) const;
    void blinkItem(UInt index);  ///< its icon
    void processItems();         ///< a frame of what blinks, for a list whose own frames stand still

    Bool isCompact() const { return m_compact; }
    void setCompact(Bool compact) { m_compact = compact; }
    const Vector2& getBase() const { return m_base; }
    void setBase(const Vector2& base) { m_base = base; }
    const Vector2& getOffset() const { return m_offset; }
    void setOffset(const Vector2& offset) { m_offset = offset; }
    void setShowOnlyIcons(Bool only_icons) { m_show_only_icons = only_icons; }
    void setShowWithPlus(Bool show_plus) { m_show_with_plus = show_plus; }

    /// Shows the values: each item where it is, or, when compact, those with a value close together.
    void updateView();
    /// Places the items in one or two columns or rows, by how many there are to show: 1 to 6. More stay in one place.
    void compactLayout();
    /// Places the list beside a point, on the side where the screen has more room.
    void setSmartPosition(const Vector2& _position);

    eScreenSide getSide() const { return m_side; }  ///< chosen by setSmartPosition()
    Int getSum() const { return m_sum; }            ///< of all values, at the last compactLayout()

private:
    struct sItem {
        cIconText* view;  ///< a child of this view
        Int value = 0;
        Int compare = 0;
    };

    const sItem& at(UInt index) const;
    Bool isLeftOut(const sItem& item) const { return !m_show_if_zero && item.value == 0; }
    WString makeText(const sItem& item, Bool with_plus) const;
    void showItem(const sItem& item, const WString& text);

    std::vector<sItem> m_items;
    DXColor m_disable_text_color{1.0f, 0x60 / 255.0f, 0x60 / 255.0f, 1.0f};
    DXColor m_enable_text_color{0xE0 / 255.0f, 0xE0 / 255.0f, 0.0f, 1.0f};
    Bool m_show_if_zero = false;
    Bool m_show_with_x = false;
    Bool m_show_with_plus = false;
    Bool m_show_only_icons = false;
    Bool m_compact = false;
    Vector2 m_offset{0.0f, 0.0f};
    Vector2 m_base{0.0f, 0.0f};
    Vector2 m_cursor_offset{0.0f, 0.0f};
    eScreenSide m_side = eScreenSide::downRight;
    Int m_sum = 0;
};
