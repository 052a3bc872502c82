#pragma once

#include "Engine/Ui/Back.h"

namespace Engine {

/// A panel with a fade of its own, over the alpha of its children, while the scene around it goes on.
///
/// A fade that is turned round goes on from the alpha it had reached.
class cAlphaBack : public cBack {
public:
    enum eMode : UInt { showing = 0, hiding = 1, discarding = 2, idle = 3 };

    using cBack::cBack;

    /// The keys of cBack, then "ShowTime" and "HideTime" (seconds).
    void loadXML(const iXML* xml) override;
    void process() override;
    void hid() override;

    virtual void alphaShowed() {}  ///< the panel has come up
    virtual void alphaHided() {}   ///< the panel is gone from sight; it stays shown, with alpha 0

    void setupAlpha(Float alpha);  ///< of all children that are drawn
    void alphaShow();
    void alphaHide();
    void alphaDiscard();  ///< hides, then discards the panel

    eMode getMode() const { return m_mode; }
    Float getAlphaValue() const { return m_alpha_value; }

private:
    void fadeOut(eMode mode);
    void endFade();

    eMode m_mode = idle;
    Float m_show_time = 0.0f;  ///< seconds
    Float m_hide_time = 0.0f;  ///< seconds
    Float m_time_left = 0.0f;  ///< seconds of the running fade
    Float m_alpha_value = 1.0f;
};

}  // namespace Engine
