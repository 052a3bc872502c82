#pragma once

#include "Engine/Ui/Picture.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"

/// The logos before the first screen: three pictures of 4 seconds each. One that is missing is skipped.
///
/// A key or button skips the logo on the screen; on the last one it ends the sequence. At the end one of the two
/// continuations runs, once, and the screen fades away by itself.
/// UI file "UI/logo.xml".
class cPreload : public Engine::cPicture, public Engine::cSingleton<cPreload> {
public:
    using fContinue = void (*)();

    /// @param continue_profile  where the player of last time is remembered
    /// @param continue_new      where nobody is
    cPreload(fContinue continue_profile, fContinue continue_new);

    void process() override;
    void enabled() override;
    void disabled() override;

private:
    static void onAnyKey(Engine::cView* view);

    void switchState();
    void showLogo(const String& name);
    void skip();
    void finish();

    fContinue m_continue_profile;
    fContinue m_continue_new;
    UInt m_state = 0;     ///< the logo on the screen, 1 to 3; 0 before the first
    Float m_time = 0.0f;  ///< seconds since the logo came up, real time
    Bool m_ended = false;
    Bool m_second_event = false;  ///< a press and its release both arrive; only every second event counts
};
