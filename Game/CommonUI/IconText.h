#pragma once

#include "Engine/Ui/TextLine.h"
#include "Game/Types.h"

namespace Engine {
class cPicture;
}

/// A text with an icon beside it that stays at its distance.
class cIconText : public Engine::cTextLine {
public:
    explicit cIconText(Engine::cView* parent);

    /// The keys of cTextLine, then "HasDisableView" (the icon's second frame is its disabled look), "BlinkTime"
    /// (seconds) and "BlinkPeriod" (seconds from one blink to the next), and the child tag "Icon" (cPicture, its
    /// position being relative to the text). Throws the plain string "Can't find Icon" without one.
    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    void hid() override;
    void setAlpha(const Float& alpha) override;

    void setEnabledState(Bool enabled_state);
    void blinkIcon();  ///< for BlinkTime, from now on: to draw the eye
    Bool isBlinking() const { return m_blink_left > 0.0f; }
    const Engine::cPicture& getIcon() const { return *m_icon; }

private:
    Engine::cPicture* m_icon;  ///< a child of this view
    Bool m_has_disable_view = false;
    Float m_blink_time = 1.5f;    ///< seconds
    Float m_blink_period = 0.3f;  ///< seconds
    Float m_blink_left = 0.0f;    ///< seconds; 0 while it does not blink
};
