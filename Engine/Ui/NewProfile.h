#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/Ui/TextBox.h"
#include "Engine/Ui/TextButton.h"
#include "Engine/core/Singleton.h"

namespace Engine {

/// The screen on which the first player types his name.
///
/// OK, or Enter, takes a name that is not blank: its player becomes the current one, the screen fades out and is
/// discarded, the callback is called.
/// UI file "UI/NewUser.xml": the keys of cBack and the child tags "PodlogkaPodImia" (cPicture, the plate under the
/// name), "NameEdit" (cTextBox), "OkButton" (cTextButton) and "Texts", each of whose children is a cTextLine.
class cNewProfile : public cBack, public cSingleton<cNewProfile> {
public:
    using ON_OK = void (*)();

    cNewProfile();  ///< hidden

    void loadXML(const iXML* xml) override;
    void process() override;
    void enabled() override;
    void disabled() override;

    void setOnOk(ON_OK callback) { m_on_ok = callback; }

private:
    static void onOk(cView* view);
    void updateButton();

    ON_OK m_on_ok = nullptr;
    Bool m_ended = false;  ///< Enter and a click may arrive in one frame

    // Children of this view.
    cPicture* m_plate;
    cTextBox* m_name;
    cTextButton* m_ok;
};

}  // namespace Engine
