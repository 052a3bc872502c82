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

    /// The keys of cTextLine, then "HasDisableView" (the icon's second frame is its disabled look) and the child tag
    /// "Icon" (cPicture, its position being relative to the text).
    /// Throws the plain string "Can't find Icon" without one.
    void loadXML(const Engine::iXML* xml) override;
    void setAlpha(const Float& alpha) override;

    void setEnabledState(Bool enabled_state);
    const Engine::cPicture& getIcon() const { return *m_icon; }

private:
    Engine::cPicture* m_icon;  ///< a child of this view
    Bool m_has_disable_view = false;
};
