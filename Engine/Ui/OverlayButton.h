#pragma once

#include "Engine/Ui/AnimButton.h"

namespace Engine {

/// A button that lights up: while hovered or pressed a coloured copy of its picture lies over it.
///
/// The overlay is a child at the button's place and size, a hair above it, and follows it everywhere.
class cOverlayButton : public cAnimButton {
public:
    explicit cOverlayButton(cView* parent);
    /// The copy has an overlay of its own.
    cOverlayButton(const cOverlayButton& other);

    void process() override;
    /// The keys of cAnimButton, then "OverlayColor".
    void loadXML(const iXML* xml) override;
    void showed() override;
    void setStatePicture(eButtonState state) override;

private:
    void followButton();

    cPicture* m_overlay;  ///< a child of this view
};

}  // namespace Engine
