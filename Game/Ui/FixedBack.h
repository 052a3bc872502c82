#pragma once

#include "Engine/Ui/Back.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

namespace Engine {
class cOverlayButton;
class cPicture;
}  // namespace Engine
class cGreeter;

/// The valley behind the main menu and the players' screens: a mill whose sails turn, clouds that drift, a man who
/// waves now and then. A screen of its own below the others, so that they change before a scene that stays.
///
/// UI file "Ui/FixedBack.xml": the keys of cBack and the child tags
/// - "Clouds": each of its children is a cCloud;
/// - "Sails" (cPicture) and "Mill" (cOverlayButton): a click on the mill stops and starts the sails;
/// - "Man" (cGreeter).
class cFixedBack : public Engine::cBack, public Engine::cSingleton<cFixedBack> {
public:
    cFixedBack();

    void loadXML(const Engine::iXML* xml) override;

    /// Does the mill answer the pointer? Not while another screen lies over it.
    void setPlayful(Bool playful);

private:
    static void onMill(Engine::cView* view);

    // Children of this view.
    Engine::cPicture* m_sails;
    Engine::cOverlayButton* m_mill;
    cGreeter* m_man;
};
