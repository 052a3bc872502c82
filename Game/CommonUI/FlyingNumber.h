#pragma once

#include "Engine/Ui/Control.h"
#include "Game/Types.h"

namespace Engine {
class cPicture;
class cTextLine;
}  // namespace Engine

/// A number that flies up and fades where goods have come or gone, with their icon beside it. It is gone by itself.
class cFlyingNumber : public Engine::cControl {
public:
    /// Sets itself up from "Effects/FlyingNumber.xml" and begins to fly.
    /// @param parent  a control takes the number along and lets it fly in front of itself; the map's layer of objects
    /// or
    ///                null: it flies over the map
    /// @param x       of the place, on the screen
    /// @param amount  below 1 it is one that has gone
    /// @param kind    of the goods, 0 to 4; it has no icon for any other
    /// @param random  it begins somewhere near the place
    cFlyingNumber(Engine::cView* parent, Float x, Float y, Int amount, Int kind, Bool random);
    ~cFlyingNumber() override;

    /// The keys of a control, then "offset" (units from the place), "random_radius" (units, along both axes),
    /// "fly_up_dir" (the whole way, units), "fly_up_time" (seconds, above 0), "DisableTextColor" (of an amount below 1)
    /// and the child tags "Number" (cTextLine) and "Icons" (a cPicture for each kind of goods), whose place counts from
    /// the number's.
    void loadXML(const Engine::iXML* xml) override;
    void setAlpha(const Float& alpha) override;
    void process() override;

    const Engine::cTextLine& getNumber() const { return *m_number; }

private:
    void takePlace(cControl& part);
    void showAmount();

    Int m_amount;
    Int m_kind;
    Vector2 m_offset{0.0f, 0.0f};
    Float m_random_radius = 0.0f;
    Vector2 m_way{0.0f, 1.0f};  ///< in its whole time, units
    Float m_fly_up_time = 1.0f;
    Float m_time_left = 0.0f;  ///< seconds
    DXColor m_disable_text_color{1.0f, 0x60 / 255.0f, 0x60 / 255.0f, 1.0f};
    Engine::cTextLine* m_number;         ///< a child of this view
    Engine::cPicture* m_icon = nullptr;  ///< a child of this view; null for none
};
