#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/MultilineText.h"
#include "Engine/Ui/TextButton.h"

namespace Engine {

/// A question with two answers. While it is open its owner, with everything in it, is locked and disabled.
///
/// The dialog is a screen of its own, since only such a view fades: made, given its text and callbacks, it is shown
/// with showTransparently(). An answer fades it out; then the callback of that answer is called with the owner, and the
/// dialog is discarded.
class cYesNo : public cBack {
public:
    using ON_ANSWER = void (*)(cView* owner);

    /// @param owner  null for a dialog that locks nothing; if it goes before the answer, no callback is called
    /// @param file   with the keys of cBack and the child tags "YesButton", "NoButton" (cTextButton) and "Text"
    ///               (cMultilineText)
    explicit cYesNo(cView* owner, const String& file = "UI/YesNo.xml");
    ~cYesNo() override;

    void loadXML(const iXML* xml) override;
    void enabled() override;
    void disabled() override;
    void absoluteProcess() override;  ///< waits for the end of the fade

    void setText(const WString& text) { m_text->setText(text); }
    void setOnYes(ON_ANSWER callback) { m_on_yes = callback; }
    void setOnNo(ON_ANSWER callback) { m_on_no = callback; }

private:
    enum class eResult { none, yes, no };

    static void onYes(cView* view);
    static void onNo(cView* view);
    static void onEscape(cView* view);
    static void onEnter(cView* view);
    void answer(eResult result);
    void freeOwner();

    cView* m_owner;
    ON_ANSWER m_on_yes = nullptr;
    ON_ANSWER m_on_no = nullptr;
    eResult m_result = eResult::none;
    Bool m_owner_was_enabled = false;

    // Children of this view.
    cTextButton* m_yes;
    cTextButton* m_no;
    cMultilineText* m_text;
};

}  // namespace Engine
