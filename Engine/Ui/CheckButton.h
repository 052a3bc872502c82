#pragma once

#include "Engine/Ui/Button.h"

namespace Engine {

/// A button that holds a tick: each click turns it on or off.
class cCheckButton : public cButton {
public:
    using CHECK_CALLBACK = void (*)(cView* view, Bool checked);

    explicit cCheckButton(cView* parent);

    /// Shows or hides the tick where it differs from the flag.
    void process() override;
    /// The keys of cButton, then the child tag "Tick" (a cPicture) and "Checked".
    void loadXML(const iXML* xml) override;
    void unclicked() override;

    Bool isChecked() const { return m_checked; }
    void setChecked(Bool checked) { m_checked = checked; }
    void setOnCheck(CHECK_CALLBACK callback) { m_on_check = callback; }

private:
    void updateTick();

    cPicture* m_tick;  ///< a child of this view
    Bool m_checked = false;
    CHECK_CALLBACK m_on_check = nullptr;
};

}  // namespace Engine
