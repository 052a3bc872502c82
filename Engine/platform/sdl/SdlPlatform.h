#pragma once

#include <SDL.h>

#include <deque>

#include "Engine/platform/Platform.h"
#include "Engine/platform/sdl/InstanceGuard.h"
#include "Engine/platform/sdl/SdlInput.h"

namespace Engine::Platform {

class cSdlWindow;

/// The desktop: a window, the pointer and the keyboard through SDL2.
///
/// SDL's events are translated one by one into the engine's messages; key, button and movement events also go to the
/// input devices. SDL starts with the first window, so that a second instance of the program ends at once.
class cSdlPlatform : public iPlatform {
public:
    cSdlPlatform() = default;
    ~cSdlPlatform() override;

    Bool takeMessage(sMessage& message) override;
    void postMessage(const sMessage& message) override;
    void defaultProcedure(const sMessage& message) override;
    Bool claimInstance(const String& name) override { return m_guard.claim(name); }

    UInt getMilliseconds() override;
    void sleep(UInt milliseconds) override;
    sLocalTime getLocalTime() override;
    void showMessageBox(const WString& title, const WString& text) override;
    String getExecutablePath() override;
    String getWritableDirectory() override;

    std::unique_ptr<iWindow> createWindow(const sWindowParams& params) override;
    Vector2 getCursorPos() override;
    void setCursor(eCursor cursor) override;
    eCursor getCursor() const override { return m_cursor; }

    std::unique_ptr<iKeyboard> createKeyboard() override;
    std::unique_ptr<iMouse> createMouse() override;
    std::unique_ptr<iJoystick> createJoystick() override;
    Bool areMouseButtonsSwapped() override { return false; }

    std::unique_ptr<iGraphicsDevice> createGraphicsDevice(iWindow& window) override;
    std::unique_ptr<iSoundDevice> createSoundDevice() override;

private:
    void startVideo();
    void translate(const SDL_Event& event);
    void translateKey(const SDL_KeyboardEvent& key);
    void translateText(const char* text);
    void translateWindow(const SDL_WindowEvent& event);
    void comeToFront();

    std::deque<sMessage> m_messages;
    cInstanceGuard m_guard;
    sInputHub m_input;
    cSdlWindow* m_window = nullptr;  ///< of the engine, which ends before the platform
    Bool m_closed = false;           ///< the window counts as destroyed
    Bool m_video_started = false;
    Bool m_sound_lost = false;  ///< the output that was heard is gone
    Bool m_alt_alone = false;   ///< Alt went down and nothing came between
    eCursor m_cursor = eCursor::arrow;
    SDL_Cursor* m_cursors[3] = {};  ///< by eCursor
};

}  // namespace Engine::Platform
