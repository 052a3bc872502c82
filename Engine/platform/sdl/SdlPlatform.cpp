#include "Engine/platform/sdl/SdlPlatform.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "Engine/core/CallStack.h"
#include "Engine/platform/GraphicsDevice.h"
#include "Engine/platform/sdl/CreateSdlPlatform.h"
#include "Engine/platform/sdl/GlDevice.h"
#include "Engine/platform/sdl/KeyCodes.h"
#include "Engine/platform/sdl/SdlSound.h"
#include "Engine/platform/sdl/SdlWindow.h"

namespace Engine::Platform {

namespace {

sMessage sysCommand(eSysCommand command) {
    return {eMessage::sysCommand, static_cast<UInt>(command)};
}

/// Keys that type a control character; text input does not report these.
char16_t controlCharacter(const SDL_Keysym& key) {
    switch (key.sym) {
        case SDLK_BACKSPACE:
            return 8;
        case SDLK_TAB:
            return 9;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            return 13;
        case SDLK_ESCAPE:
            return 27;
        default:
            break;
    }
    const Bool control_letter = (key.mod & KMOD_CTRL) != 0 && key.sym >= 'a' && key.sym <= 'z';
    return control_letter ? static_cast<char16_t>(key.sym - 'a' + 1) : u'\0';
}

Bool isAlt(SDL_Keycode key) {
    return key == SDLK_LALT || key == SDLK_RALT;
}

}  // namespace

cSdlPlatform::~cSdlPlatform() {
    if (!m_video_started)
        return;
    for (SDL_Cursor* cursor : m_cursors) {
        if (cursor)
            SDL_FreeCursor(cursor);
    }
    SDL_Quit();
}

// Messages ---------------------------------------------------------------------------------------------------------

Bool cSdlPlatform::takeMessage(sMessage& message) {
    if (m_guard.takeRequest())
        comeToFront();
    SDL_Event event;
    while (m_video_started && m_messages.empty() && SDL_PollEvent(&event)) {
        trackInput(m_input, event);
        translate(event);
    }
    if (m_messages.empty())
        return false;
    message = m_messages.front();
    m_messages.pop_front();
    return true;
}

void cSdlPlatform::postMessage(const sMessage& message) {
    m_messages.push_back(message);
}

void cSdlPlatform::defaultProcedure(const sMessage& message) {
    if (!m_window)
        return;
    if (message.type == eMessage::close && !m_closed) {
        // The window's surface is in use until the engine goes, so it only leaves the screen now.
        m_closed = true;
        m_window->hide();
        postMessage({eMessage::destroy, 0});
    } else if (message.type == eMessage::sysCommand) {
        if (message.param == static_cast<UInt>(eSysCommand::restore) && m_window->isMinimized())
            m_window->restore();
        else if (message.param == static_cast<UInt>(eSysCommand::minimize) && !m_window->isMinimized())
            m_window->minimize();
    }
}

void cSdlPlatform::translate(const SDL_Event& event) {
    switch (event.type) {
        case SDL_QUIT:
            postMessage({eMessage::close, 0});
            break;
        case SDL_WINDOWEVENT:
            translateWindow(event.window);
            break;
        case SDL_KEYDOWN:
        case SDL_KEYUP:
            translateKey(event.key);
            break;
        case SDL_TEXTINPUT:
            translateText(event.text.text);
            break;
        case SDL_AUDIODEVICEREMOVED:
            m_sound_lost = true;
            break;
        case SDL_MOUSEMOTION:
            postMessage({eMessage::mouseMove, 0});
            break;
        default:
            break;
    }
}

void cSdlPlatform::translateWindow(const SDL_WindowEvent& event) {
    switch (event.event) {
        case SDL_WINDOWEVENT_CLOSE:
            postMessage({eMessage::close, 0});
            break;
        case SDL_WINDOWEVENT_FOCUS_GAINED:
            m_input.foreground = true;
            postMessage({eMessage::activate, active});
            break;
        case SDL_WINDOWEVENT_FOCUS_LOST:
            m_alt_alone = false;
            m_input.foreground = false;
            postMessage({eMessage::activate, inactive});
            break;
        case SDL_WINDOWEVENT_MINIMIZED:
            postMessage(sysCommand(eSysCommand::minimize));
            break;
        case SDL_WINDOWEVENT_RESTORED:
            postMessage(sysCommand(eSysCommand::restore));
            break;
        case SDL_WINDOWEVENT_MAXIMIZED:
            // The window keeps its size: its maximise box asks for the full screen.
            SDL_RestoreWindow(m_window->getHandle());
            postMessage(sysCommand(eSysCommand::maximize));
            break;
        case SDL_WINDOWEVENT_SIZE_CHANGED:
            if (m_window)
                m_window->keepSize();
            break;
        default:
            break;
    }
}

void cSdlPlatform::translateKey(const SDL_KeyboardEvent& key) {
    const Bool down = key.type == SDL_KEYDOWN;
    if (isAlt(key.keysym.sym)) {
        // Alt pressed and released by itself is the key of the window's menu.
        if (!down && m_alt_alone)
            postMessage(sysCommand(eSysCommand::keyMenu));
        m_alt_alone = down;
        return;
    }
    m_alt_alone = false;
    if (!down)
        return;
    const UInt virtual_key = toVirtualKey(key.keysym.sym);
    if ((key.keysym.mod & KMOD_ALT) != 0) {
        if (!key.repeat)
            postMessage({eMessage::sysKeyDown, virtual_key});
        return;
    }
    postMessage({eMessage::keyDown, virtual_key});
    if (const char16_t character = controlCharacter(key.keysym))
        postMessage({eMessage::character, character});
}

void cSdlPlatform::translateText(const char* text) {
    for (const char16_t unit : toWide(text))
        postMessage({eMessage::character, unit});
}

void cSdlPlatform::comeToFront() {
    if (!m_window)
        return;
    if (m_window->isMinimized())
        postMessage(sysCommand(eSysCommand::restore));
    else
        SDL_RaiseWindow(m_window->getHandle());
}

// Clock and system -------------------------------------------------------------------------------------------------

UInt cSdlPlatform::getMilliseconds() {
    using namespace std::chrono;
    return static_cast<UInt>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

void cSdlPlatform::sleep(UInt milliseconds) {
    SDL_Delay(milliseconds);
}

sLocalTime cSdlPlatform::getLocalTime() {
    return readSystemClock();
}

void cSdlPlatform::showMessageBox(const WString& title, const WString& text) {
    const String narrow = toNarrow(text);
    SDL_Window* parent = m_window && !m_closed ? m_window->getHandle() : nullptr;
    if (SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_WARNING, toNarrow(title).c_str(), narrow.c_str(), parent) != 0)
        std::fprintf(stderr, "%s: %s\n", toNarrow(title).c_str(), narrow.c_str());
}

String cSdlPlatform::getExecutablePath() {
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof(path));
    return length > 0 ? String(std::string_view(path, static_cast<std::size_t>(length))) : String();
}

String cSdlPlatform::getWritableDirectory() {
    const char* data_home = std::getenv("XDG_DATA_HOME");
    if (data_home && data_home[0] == '/')
        return String(data_home) + "/";
    const char* home = std::getenv("HOME");
    return String(home && *home ? home : "/tmp") + "/.local/share/";
}

// Window and devices -----------------------------------------------------------------------------------------------

void cSdlPlatform::startVideo() {
    if (m_video_started)
        return;
    ENGINE_MARK;
    SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
    SDL_SetHint(SDL_HINT_APP_NAME, "Brindle");
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        throw String(std::string("Can't start the display: ") + SDL_GetError());
    m_video_started = true;
    SDL_StartTextInput();
    m_cursors[static_cast<UInt>(eCursor::arrow)] = SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_ARROW);
    m_cursors[static_cast<UInt>(eCursor::dragSideways)] = SDL_CreateSystemCursor(SDL_SYSTEM_CURSOR_SIZEWE);
}

std::unique_ptr<iWindow> cSdlPlatform::createWindow(const sWindowParams& params) {
    startVideo();
    auto window = std::make_unique<cSdlWindow>(params);
    m_window = window.get();
    m_closed = false;
    return window;
}

Vector2 cSdlPlatform::getCursorPos() {
    Int x = 0;
    Int y = 0;
    if (m_window && SDL_GetMouseFocus() != m_window->getHandle()) {
        SDL_GetGlobalMouseState(&x, &y);
    } else {
        SDL_GetMouseState(&x, &y);
        const sRect rect = m_window ? m_window->getClientRect() : sRect{};
        x += rect.left;
        y += rect.top;
    }
    return {static_cast<Float>(x), static_cast<Float>(y)};
}

void cSdlPlatform::setCursor(eCursor cursor) {
    m_cursor = cursor;
    if (SDL_Cursor* handle = m_cursors[static_cast<UInt>(cursor)])
        SDL_SetCursor(handle);
    SDL_ShowCursor(cursor == eCursor::none ? SDL_DISABLE : SDL_ENABLE);
}

std::unique_ptr<iKeyboard> cSdlPlatform::createKeyboard() {
    return std::make_unique<cBufferedKeyboard>(m_input);
}

std::unique_ptr<iMouse> cSdlPlatform::createMouse() {
    return std::make_unique<cSdlMouse>(m_input);
}

std::unique_ptr<iJoystick> cSdlPlatform::createJoystick() {
    if (SDL_InitSubSystem(SDL_INIT_JOYSTICK) != 0 || SDL_NumJoysticks() == 0)
        return nullptr;
    SDL_Joystick* stick = SDL_JoystickOpen(0);
    return stick ? std::make_unique<cSdlJoystick>(m_input, stick) : nullptr;
}

std::unique_ptr<iGraphicsDevice> cSdlPlatform::createGraphicsDevice(iWindow& window) {
    return createGlDevice(static_cast<cSdlWindow&>(window).getHandle());
}

std::unique_ptr<iSoundDevice> cSdlPlatform::createSoundDevice() {
    return std::make_unique<cSdlSound>(m_sound_lost);
}

std::unique_ptr<iPlatform> createSdlPlatform() {
    return std::make_unique<cSdlPlatform>();
}

}  // namespace Engine::Platform
