#pragma once

#include "Engine/Ui/ProgressFloat.h"
#include "Game/Types.h"

/// A bar with a picture behind it: a frame, a groove. The two are seen together.
class cProgressFloatExt : public Engine::cProgressFloat {
public:
    using cProgressFloat::cProgressFloat;
    cProgressFloatExt(const cProgressFloatExt&) = delete;  // the picture behind it is one bar's own
    cProgressFloatExt& operator=(const cProgressFloatExt&) = delete;

    /// The keys of cProgressFloat and the child tag "Back" (cPicture), whose place counts from the bar's and whose deep
    /// from one below it.
    void loadXML(const Engine::iXML* xml) override;
    void setAlpha(const Float& alpha) override;

    const Engine::cPicture* getBack() const { return m_back; }  ///< null without one

    /// A number that the bar's owner keeps with it; the bar itself makes nothing of it.
    virtual Float getExtraValue() const { return m_extra_value; }
    virtual void setExtraValue(Float value) { m_extra_value = value; }

private:
    Engine::cPicture* m_back = nullptr;  ///< a child of this view
    Float m_extra_value = 0.0f;
};
