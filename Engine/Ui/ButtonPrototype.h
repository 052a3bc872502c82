#pragma once

#include "Engine/Ui/Picture.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/input/ControlCodes.h"

namespace Engine {

enum class eButtonState : Int { none = -1, disabled = 0, normal = 1, hovered = 2, pressed = 3 };

/// The mouse side of every button: four states, hit testing by rectangle or mask, sounds and callbacks.
///
/// A button listens only while it is enabled and shown. Press, release and movement reach it in the frame's input pass
/// and take effect at once, except with deep processing: among overlapping buttons of that kind only the one with the
/// highest deep is hovered and clicked (of equal ones the first to be hovered), and that happens in its process().
/// While locked a button keeps listening but does nothing. How a state looks is what derived classes differ in.
class cButtonPrototype : public cPicture {
public:
    using CALLBACK = void (*)(cView* view);

    using cPicture::cPicture;
    ~cButtonPrototype() override;

    void process() override;
    /// The keys of cPicture, then "IsDeepProcessing", "SoundOnUnclick", "texture_mask" (the hit mask's picture) and the
    /// child tag "Sounds" with the attributes "Click" and "Hover".
    void loadXML(const iXML* xml) override;
    void enabled() override;
    void disabled() override;

    virtual void setState(eButtonState state);
    virtual void setStatePicture(eButtonState) {}
    virtual Bool pointInRect(const Vector2& point) const;
    virtual void clicked();    ///< pressed
    virtual void unclicked();  ///< released after a press, over the button or not
    virtual void hovered();
    virtual void unhovered();

    eButtonState getState() const { return m_state; }
    void setOnClick(CALLBACK callback) { m_on_click = callback; }  ///< on release over the button
    void setOnHover(CALLBACK callback) { m_on_hover = callback; }
    void setOnUnhover(CALLBACK callback) { m_on_unhover = callback; }
    void setOnPress(CALLBACK callback) { m_on_press = callback; }
    void setSoundEnabled(Bool sound_enabled) { m_sound_enabled = sound_enabled; }
    void setDeepProcessing(Bool deep_processing) { m_is_deep_processing = deep_processing; }
    Bool isDeepProcessing() const { return m_is_deep_processing; }

    void loadMask(const String& path);  ///< the hit mask is what is seen of that picture

protected:
    void setMask(VECTOR_VECTOR_BOOL mask);

private:
    enum class eDeepAction { none, hover, click };

    static void onPressControl(cView* view);
    static void onReleaseControl(cView* view);
    static void onMouseMove(eControl control, Long value, cView* view);
    void mouseMoved();
    void hoverDeep();
    void leaveDeepHover();
    void playSound(const cResourceRef& sound) const;

    // The button that holds the hover among all with deep processing, and what its next process() does.
    static inline cButtonPrototype* m_deep_hovered = nullptr;
    static inline eDeepAction m_deep_action = eDeepAction::none;

    eButtonState m_state = eButtonState::none;
    CALLBACK m_on_click = nullptr;
    CALLBACK m_on_hover = nullptr;
    CALLBACK m_on_unhover = nullptr;
    CALLBACK m_on_press = nullptr;
    cResourceRef m_click_sound;
    cResourceRef m_hover_sound;
    VECTOR_VECTOR_BOOL m_mask;
    Bool m_has_mask = false;
    Bool m_sound_enabled = true;
    Bool m_is_deep_processing = false;
    Bool m_sound_on_unclick = false;
};

}  // namespace Engine
