#pragma once

#include "Engine/Ui/ButtonPrototype.h"

namespace Engine {

/// A button with a picture of its own for each state. A state without one keeps the normal picture.
class cButton : public cButtonPrototype {
public:
    using cButtonPrototype::cButtonPrototype;

    /// The keys of cButtonPrototype ("Picture" is the normal look), then "texture_pressed", "texture_hover",
    /// "texture_disabled".
    void loadXML(const iXML* xml) override;
    void setStatePicture(eButtonState state) override;

private:
    const cResourceRef& getStateTexture(eButtonState state) const;

    cResourceRef m_normal;
    cResourceRef m_hovered;
    cResourceRef m_pressed;
    cResourceRef m_disabled;
};

}  // namespace Engine
