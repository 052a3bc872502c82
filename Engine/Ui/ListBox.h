#pragma once

#include <vector>

#include "Engine/Ui/TextButton.h"
#include "Engine/Ui/View.h"

namespace Engine {

/// A list of texts to choose from, as many rows of it as its box has room for, with buttons that scroll it by a row.
class cListBox : public cView {
public:
    using ON_SELECT = void (*)(UInt item, cListBox* self);

    explicit cListBox(cView* parent);

    /// The keys of cView, then "Interlinear" (units from row to row), "MaxRows" (0: as many as fit), "TopLeft",
    /// "BottomRight" (the box), the child tags "UpButton", "DownButton" (cAnimButton), "Button" (how an item looks) and
    /// "Strings", whose children's "String" are the first items, "Count" of them or all.
    void loadXML(const iXML* xml) override;

    void setStrings(const std::vector<WString>& strings);
    UInt getCount() const { return static_cast<UInt>(m_items.size()); }
    const WString& getString(UInt item) const { return m_items.at(item)->getText(); }
    cTextButton& getItem(UInt item) { return *m_items.at(item); }

    void setFirstLine(UInt line);
    UInt getFirstLine() const { return m_first_line; }
    UInt countRows() const;  ///< that are seen at once
    void setOnSelect(ON_SELECT callback) { m_on_select = callback; }

    /// Places what is seen of the list and hides the rest. After the end of the list no row stays empty as long as
    /// there are items above.
    void updateList();

private:
    static void onItem(cView* view);
    static void onUp(cView* view);
    static void onDown(cView* view);
    void loadStrings(const iXML& xml);
    void addItem(const WString& text);

    // Children of this view.
    std::vector<cTextButton*> m_items;
    cTextButton* m_prototype;  ///< never shown
    cAnimButton* m_up;
    cAnimButton* m_down;

    Float m_interlinear = 40.0f;
    UInt m_max_rows = 0;
    Vector2 m_top_left{0.0f};
    Vector2 m_bottom_right{0.0f};
    UInt m_first_line = 0;
    ON_SELECT m_on_select = nullptr;
};

}  // namespace Engine
