#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/ListBox.h"
#include "Engine/Ui/TextBox.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"

namespace Engine {

/// The screen on which one of several players is chosen, a new one created or one deleted.
///
/// A click on a name of the list chooses that player at once. A name that is typed is that of a new player; one that is
/// taken can't be created. OK, or Enter, ends the screen with the player of the name in the field; Esc or the exit
/// button ends it with the player that there is.
/// UI file "UI/SelectUser.xml": the keys of cBack and "StringOK", "StringNew" (on the OK button for a known and a new
/// name), "StringConfirm" (the question before a player is deleted), the child tags "BigLogo", "PodlogkaPodImia"
/// (cPicture), "EnterNameText" (cTextLine), "NameEdit" (cTextBox), "OkButton", "ExitButton", "DeleteButton"
/// (cTextButton) and "UserList" (cListBox).
class cSelectProfile : public cBack, public cSingleton<cSelectProfile> {
public:
    using ON_END = void (*)();

    /// Hidden.
    /// @param parent      null for a screen that fades
    /// @param can_cancel  there is an exit button
    cSelectProfile(cView* parent, Bool can_cancel);

    void loadXML(const iXML* xml) override;
    void process() override;
    void enabled() override;
    void disabled() override;

    void setOnOk(ON_END callback) { m_on_ok = callback; }
    void setOnCancel(ON_END callback) { m_on_cancel = callback; }

private:
    static void onOk(cView* view);
    static void onExit(cView* view);
    static void onDelete(cView* view);
    static void onDeleteConfirm(cView* owner);
    static void onNameSelect(UInt item, cListBox* list);
    void end(ON_END callback);
    void choose(const WString& name);
    void updateList();
    void updateButtons();
    Bool isNameInsideList(const WString& name) const;
    WString getFieldName() const;
    Bool isCreating() const;

    Bool m_can_cancel;
    Bool m_ended = false;  ///< a key and a click may arrive in one frame
    WString m_chosen;      ///< the player that the list or the current profile has put into the field
    WString m_string_ok;
    WString m_string_new;
    WString m_string_confirm;
    ON_END m_on_ok = nullptr;
    ON_END m_on_cancel = nullptr;

    // Children of this view.
    cPicture* m_logo;
    cPicture* m_plate;
    cTextLine* m_enter_name;
    cTextBox* m_name;
    cTextButton* m_ok;
    cTextButton* m_exit;
    cTextButton* m_delete;
    cListBox* m_list;
};

}  // namespace Engine
