#pragma once

#include <SDL.h>

#include <cstdlib>
#include <memory>

#include "Engine/platform/headless/HeadlessPlatform.h"
#include "Engine/platform/sdl/GlDevice.h"

/// An OpenGL window that no screen shows.
class cOffscreenWindow {
public:
    /// Its largest picture; smaller ones lie in its lower left corner.
    static constexpr int side = 256;

    /// Null where there is no OpenGL at all.
    static std::unique_ptr<cOffscreenWindow> create() {
        // Never ended: a driver that is unloaded leaves memory behind that nothing points to any more.
        // And without threads: the leak checker trips over one that ends while it looks.
        static const bool started = setenv("LP_NUM_THREADS", "0", 0) == 0 && SDL_VideoInit("offscreen") == 0 &&
                                    SDL_GL_LoadLibrary(nullptr) == 0;
        if (!started)
            return nullptr;
        Engine::Platform::setGlAttributes();
        std::unique_ptr<cOffscreenWindow> res(new cOffscreenWindow);
        res->m_window = SDL_CreateWindow("", 0, 0, side, side, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
        return res->m_window ? std::move(res) : nullptr;
    }
    ~cOffscreenWindow() {
        if (m_window)
            SDL_DestroyWindow(m_window);
    }
    cOffscreenWindow(const cOffscreenWindow&) = delete;
    cOffscreenWindow& operator=(const cOffscreenWindow&) = delete;

    SDL_Window* getHandle() const { return m_window; }

private:
    cOffscreenWindow() = default;

    SDL_Window* m_window = nullptr;
};

/// A headless platform with a real display.
class cOffscreenPlatform : public Engine::Platform::cHeadlessPlatform {
public:
    /// @param window  outlives the devices made
    explicit cOffscreenPlatform(const cOffscreenWindow& window, Engine::String writable_directory = "/nowhere/")
        : cHeadlessPlatform("/game/brindle", std::move(writable_directory)), m_gl_window(window) {}

    std::unique_ptr<Engine::Platform::iGraphicsDevice> createGraphicsDevice(Engine::Platform::iWindow&) override {
        return Engine::Platform::createGlDevice(m_gl_window.getHandle());
    }

private:
    const cOffscreenWindow& m_gl_window;
};
