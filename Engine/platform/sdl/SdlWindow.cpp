#include "Engine/platform/sdl/SdlWindow.h"

#include <utility>

#include "Engine/core/CallStack.h"
#include "Engine/platform/sdl/GlDevice.h"

namespace Engine::Platform {

cSdlWindow::cSdlWindow(const sWindowParams& params) : m_width(params.width), m_height(params.height) {
    ENGINE_MARK;
    setGlAttributes();
    // Resizable, so that the maximise box exists; it means full screen, see cSdlPlatform.
    m_window = SDL_CreateWindow(toNarrow(params.title).c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, m_width,
                                m_height, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE);
    if (!m_window)
        throw String(std::string("Can't create the window: ") + SDL_GetError());
}

cSdlWindow::~cSdlWindow() {
    SDL_DestroyWindow(m_window);
}

void cSdlWindow::setWindowed(Int width, Int height) {
    m_width = width;
    m_height = height;
    const Bool was_full_screen = std::exchange(m_full_screen, false);
    if (was_full_screen)
        SDL_SetWindowFullscreen(m_window, 0);
    SDL_SetWindowSize(m_window, width, height);
    SDL_SetWindowPosition(m_window, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    SDL_ShowWindow(m_window);
}

void cSdlWindow::setFullScreen() {
    m_full_screen = true;
    SDL_ShowWindow(m_window);
    SDL_SetWindowFullscreen(m_window, SDL_WINDOW_FULLSCREEN_DESKTOP);
}

void cSdlWindow::restore() {
    SDL_RestoreWindow(m_window);
    SDL_RaiseWindow(m_window);
}

void cSdlWindow::minimize() {
    SDL_MinimizeWindow(m_window);
}

void cSdlWindow::hide() {
    SDL_HideWindow(m_window);
}

void cSdlWindow::keepSize() {
    if (m_full_screen)
        return;
    Int width = 0;
    Int height = 0;
    SDL_GetWindowSize(m_window, &width, &height);
    if (width != m_width || height != m_height)
        SDL_SetWindowSize(m_window, m_width, m_height);
}

Bool cSdlWindow::isMinimized() const {
    return (SDL_GetWindowFlags(m_window) & SDL_WINDOW_MINIMIZED) != 0;
}

sRect cSdlWindow::getClientRect() const {
    sRect rect;
    SDL_GetWindowPosition(m_window, &rect.left, &rect.top);
    Int width = 0;
    Int height = 0;
    SDL_GetWindowSize(m_window, &width, &height);
    rect.right = rect.left + width;
    rect.bottom = rect.top + height;
    return rect;
}

sRect cSdlWindow::getDisplayRect() const {
    SDL_Rect bounds{0, 0, m_width, m_height};
    const int display = SDL_GetWindowDisplayIndex(m_window);
    SDL_GetDisplayBounds(display < 0 ? 0 : display, &bounds);
    return {bounds.x, bounds.y, bounds.x + bounds.w, bounds.y + bounds.h};
}

void cSdlWindow::setTitle(const WString& title) {
    SDL_SetWindowTitle(m_window, toNarrow(title).c_str());
}

}  // namespace Engine::Platform
