#pragma once

#include "Engine/Ui/Picture.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

namespace Engine {
class cAnimButton;
class cCheckButton;
class cOverlayButton;
}  // namespace Engine

/// The first screen behind the logos: a valley with a mill whose sails turn, a sign that leaves the program and a
/// switch for the full screen. A click on the mill stops and starts its sails; Esc leaves.
/// UI file "UI/Start.xml": the background's own keys, and the child tags "Cloud" (any number, with the key "Speed"),
/// "Sails", "Mill", "FullScreen" and "ExitButton".
class cStartScreen : public Engine::cPicture, public Engine::cSingleton<cStartScreen> {
public:
    cStartScreen();

    void process() override;
    void loadXML(const Engine::iXML* xml) override;
    void enabled() override;
    void disabled() override;

private:
    static void onExit(Engine::cView* view);
    static void onMill(Engine::cView* view);
    static void onFullScreen(Engine::cView* view, Bool checked);

    // All are children of this view.
    Engine::cPicture* m_sails;
    Engine::cOverlayButton* m_mill;
    Engine::cCheckButton* m_full_screen;
    Engine::cAnimButton* m_exit;
};
