#pragma once

#include "Engine/Ui/ButtonPrototype.h"

namespace Engine {

/// A button whose states are frames of one picture.
class cAnimButton : public cButtonPrototype {
public:
    using cButtonPrototype::cButtonPrototype;

    /// The keys of cButtonPrototype, then "frame_normal", "frame_pressed", "frame_hover", "frame_disabled". The
    /// animation does not play; the state is normal for an enabled button, else disabled.
    void loadXML(const iXML* xml) override;
    void setStatePicture(eButtonState state) override;

private:
    UInt m_frame_normal = 0;
    UInt m_frame_pressed = 0;
    UInt m_frame_hover = 0;
    UInt m_frame_disabled = 0;
};

}  // namespace Engine
