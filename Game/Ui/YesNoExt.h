#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextButton.h"
#include "Game/Types.h"

/// A question with two answers, over the view that asks it.
///
/// The dialog is a screen of its own (only such a view fades) and locks its owner: as long as it is enabled the owner
/// is not, whoever enables it meanwhile. Enter and Space answer yes, Esc no. An answer calls its callback with the
/// owner, once; the callback discards the dialog, with which the owner is enabled again.
/// UI file "UI/YesNo.xml": the keys of cBack and the child tags "YesButton", "NoButton" (cTextButton) and "Text"
/// (cTextLine).
class cYesNoExt : public Engine::cBack {
public:
    using fAnswer = void (*)(Engine::cView* parent);

    /// @param _parent  the owner, outlives the dialog
    explicit cYesNoExt(Engine::cView* _parent);

    /// Shows the text of cGameStrings with this name.
    void setText(const String& id);
    void setYes(fAnswer on_yes) { m_on_yes = on_yes; }
    void setNo(fAnswer on_no) { m_on_no = on_no; }

    void loadXML(const Engine::iXML* xml) override;
    void process() override;
    void enabled() override;
    void disabled() override;

private:
    static void onYes(Engine::cView* button);
    static void onNo(Engine::cView* button);
    void answer(fAnswer callback);

    Engine::cView* m_owner;
    fAnswer m_on_yes = nullptr;
    fAnswer m_on_no = nullptr;
    Bool m_answered = false;  ///< two answers may arrive in one frame; the first one counts

    // Children of this view.
    Engine::cTextButton* m_yes;
    Engine::cTextButton* m_no;
    Engine::cTextLine* m_text;
};
