#pragma once

#include "Engine/Ui/Picture.h"

namespace Engine {

/// A picture of which a part is shown: as much as its current value is of the largest one.
class cProgressFloat : public cPicture {
public:
    enum eSide : UInt { cutLeft = 0, cutRight = 1, cutTop = 2, cutBottom = 3 };

    using cPicture::cPicture;

    /// The keys of cPicture, then "ProgressMaxValue", "ProgressCurrentValue", "Side" (an eSide, that which is cut off).
    void loadXML(const iXML* xml) override;
    void makeSprite(iGraphics::sSprite& sprite, UInt frame, Float alpha) const override;

    Float getProgressMaxValue() const { return m_max_value; }
    void setProgressMaxValue(Float value);
    Float getProgressCurrentValue() const { return m_current_value; }
    void setProgressCurrentValue(Float value);  ///< any; what is shown is limited to 0 .. max
    void setSide(eSide side);
    /// A picture that is kept on the middle of the moving edge; null for none. Not owned, outlives the bar.
    void setMarker(cPicture* marker);

    virtual void progressChanged();

private:
    Float getCut() const;

    Float m_max_value = 1.0f;
    Float m_current_value = 0.0f;
    UInt m_side = cutRight;
    cPicture* m_marker = nullptr;
};

}  // namespace Engine
