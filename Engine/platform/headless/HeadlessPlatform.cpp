#include "Engine/platform/headless/HeadlessPlatform.h"

#include <utility>

#include "Engine/platform/headless/HeadlessGraphicsDevice.h"

namespace Engine::Platform {

/// A window that is nothing but its size.
class cHeadlessPlatform::cWindow : public iWindow {
public:
    cWindow(cHeadlessPlatform& platform, const sWindowParams& params) : m_platform(platform) {
        setWindowed(params.width, params.height);
    }

    void setWindowed(Int width, Int height) override { m_rect = {0, 0, width, height}; }
    void setFullScreen() override { m_rect = m_platform.m_display; }
    void restore() override {}
    Bool isMinimized() const override { return false; }
    sRect getClientRect() const override { return m_rect; }
    sRect getDisplayRect() const override { return m_platform.m_display; }
    void setTitle(const WString&) override {}

private:
    cHeadlessPlatform& m_platform;
    sRect m_rect;
};

cHeadlessPlatform::cHeadlessPlatform(String executable, String writable_directory)
    : m_executable(std::move(executable)), m_writable_directory(std::move(writable_directory)) {
    postMessage({eMessage::activate, active});
}

cHeadlessPlatform::~cHeadlessPlatform() = default;

void cHeadlessPlatform::setDisplaySize(Int width, Int height) {
    m_display = {0, 0, width, height};
}

void cHeadlessPlatform::moveCursor(const Vector2& position) {
    const Vector2 way = position - m_cursor_pos;
    m_cursor_pos = position;
    m_input.moveMouse(static_cast<Long>(way.x), static_cast<Long>(way.y), 0);
    postMessage({eMessage::mouseMove, 0});
}

void cHeadlessPlatform::setForeground(Bool foreground) {
    m_input.foreground = foreground;
    postMessage({eMessage::activate, foreground ? active : inactive});
}

Bool cHeadlessPlatform::takeMessage(sMessage& message) {
    if (m_messages.empty() && m_on_idle && !std::exchange(m_idle_done, true))
        m_on_idle();
    if (m_messages.empty()) {
        m_idle_done = false;
        return false;
    }
    message = m_messages.front();
    m_messages.pop_front();
    return true;
}

void cHeadlessPlatform::defaultProcedure(const sMessage& message) {
    if (message.type == eMessage::close && !std::exchange(m_closed, true))
        postMessage({eMessage::destroy, 0});
}

std::unique_ptr<iWindow> cHeadlessPlatform::createWindow(const sWindowParams& params) {
    m_closed = false;
    return std::make_unique<cWindow>(*this, params);
}

std::unique_ptr<iKeyboard> cHeadlessPlatform::createKeyboard() {
    return std::make_unique<cBufferedKeyboard>(m_input);
}

std::unique_ptr<iMouse> cHeadlessPlatform::createMouse() {
    return std::make_unique<cBufferedMouse>(m_input);
}

Bool cHeadlessPlatform::areMouseButtonsSwapped() {
    ++m_swap_queries;
    return m_buttons_swapped;
}

void cHeadlessPlatform::setSoundDevice(std::unique_ptr<iSoundDevice> device) {
    m_sound_device = std::move(device);
}

std::unique_ptr<iGraphicsDevice> cHeadlessPlatform::createGraphicsDevice(iWindow&) {
    return std::make_unique<cHeadlessGraphicsDevice>();
}

}  // namespace Engine::Platform
