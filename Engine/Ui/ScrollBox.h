#pragma once

#include "Engine/Ui/Button.h"
#include "Engine/Ui/Picture.h"

namespace Engine {

/// A slider: a bar, and a knob that the pointer draws along it. A press on either takes hold of the knob, a release
/// anywhere lets go of it.
class cScrollBox : public cPicture {
public:
    enum eLayout : UInt { horizontal = 0, vertical = 1 };
    using ON_CHANGE = void (*)(cScrollBox* self, Float value);
    using ON_DRAG = void (*)(cScrollBox* self, Bool dragging);

    /// The knob.
    class cSlider : public cButton {
    public:
        using cButton::cButton;
    };

    explicit cScrollBox(cView* parent);

    /// The keys of cPicture (the bar), then "Layout", "Min", "Max", "Value" and the child tag "Slider", the knob.
    void loadXML(const iXML* xml) override;
    void process() override;
    void showed() override;
    void enabled() override;
    void disabled() override;

    Float getValue() const { return m_value; }
    void setValue(Float value);  ///< limited to the range; calls nothing
    Bool isMoving() const { return m_moving; }
    /// For each value that the pointer brings about.
    void setOnChange(ON_CHANGE callback) { m_on_change = callback; }
    void setOnDrag(ON_DRAG callback) { m_on_drag = callback; }

private:
    static void onPress(cView* view);
    static void onRelease(cView* view);
    void setMoving(Bool moving);
    Float getCursorValue() const;
    void placeSlider();

    cSlider* m_slider;  ///< a child
    UInt m_layout = horizontal;
    Float m_max = 100.0f;
    Float m_min = 0.0f;
    Float m_value = 0.0f;
    Bool m_moving = false;
    ON_CHANGE m_on_change = nullptr;
    ON_DRAG m_on_drag = nullptr;
};

}  // namespace Engine
