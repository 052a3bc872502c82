#pragma once

#include <SDL.h>

#include "Engine/platform/Window.h"

namespace Engine::Platform {

/// A window of SDL's that can carry an OpenGL context. Shown by the first setWindowed() or setFullScreen().
class cSdlWindow : public iWindow {
public:
    /// Throws "Can't create the window: " and SDL's message.
    explicit cSdlWindow(const sWindowParams& params);
    ~cSdlWindow() override;

    void setWindowed(Int width, Int height) override;
    void setFullScreen() override;
    void restore() override;
    Bool isMinimized() const override;
    sRect getClientRect() const override;
    sRect getDisplayRect() const override;
    void setTitle(const WString& title) override;

    void minimize();
    void hide();
    /// Puts the window back to its own size after the window manager has changed it.
    void keepSize();

    SDL_Window* getHandle() const { return m_window; }

private:
    SDL_Window* m_window;
    Int m_width;
    Int m_height;
    Bool m_full_screen = false;
};

}  // namespace Engine::Platform
