#include "Tools/simulate/Machine.h"

#include <SDL.h>

#include <cstdlib>
#include <fstream>

#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/image/Image.h"
#include "Engine/platform/headless/HeadlessPlatform.h"
#include "Engine/platform/sdl/SdlPlatform.h"

using namespace Engine;

namespace Simulate {

namespace {

/// The program looks for its data beside itself.
std::string getExecutable(const std::filesystem::path& data) {
    return (std::filesystem::absolute(data).parent_path() / "brindle").string();
}

Vector2 toDisplay(const Vector2& place) {
    Vector2 res;
    cGraphics::getInstance()->toScreen(place, res);
    return res;
}

class cHeadlessMachine : public iMachine {
public:
    cHeadlessMachine(const std::filesystem::path& data, const std::filesystem::path& home)
        : m_platform(getExecutable(data), home.string() + "/") {}

    Platform::iPlatform& getPlatform() override { return m_platform; }
    void advance(unsigned milliseconds) override { m_platform.advance(milliseconds); }
    void move(const Vector2& place) override { m_platform.moveCursor(toDisplay(place)); }
    void pushButton(unsigned button, bool pressed) override { m_platform.pushMouseButton(button, pressed); }
    void pushKey(unsigned scan_code, bool pressed) override { m_platform.pushKey(scan_code, pressed); }
    void shoot(const std::string&) override { throw String("\"shot\" needs --draw"); }

private:
    Platform::cHeadlessPlatform m_platform;
};

/// The desktop platform on a video driver without a display, with a clock that stands between frames.
class cDrawingPlatform : public Platform::cSdlPlatform {
public:
    cDrawingPlatform(std::string executable, std::string home)
        : m_executable(std::move(executable)), m_home(std::move(home)) {}

    UInt getMilliseconds() override { return m_now; }
    void sleep(UInt milliseconds) override { m_now += milliseconds; }
    Vector2 getCursorPos() override { return m_cursor; }
    String getExecutablePath() override { return m_executable; }
    String getWritableDirectory() override { return m_home; }
    void setCursorPos(const Vector2& place) { m_cursor = place; }

private:
    String m_executable;
    String m_home;
    UInt m_now = 0;
    Vector2 m_cursor{-1.0f, -1.0f};
};

class cDrawingMachine : public iMachine {
public:
    cDrawingMachine(const std::filesystem::path& data, const std::filesystem::path& home)
        : m_platform(getExecutable(data), home.string() + "/") {}

    Platform::iPlatform& getPlatform() override { return m_platform; }
    void advance(unsigned milliseconds) override { m_platform.sleep(milliseconds); }
    void move(const Vector2& place) override {
        const Vector2 target = toDisplay(place);
        const Vector2 way = target - m_platform.getCursorPos();
        SDL_Event event{};
        event.type = SDL_MOUSEMOTION;
        event.motion.x = static_cast<int>(place.x);
        event.motion.y = static_cast<int>(place.y);
        event.motion.xrel = static_cast<int>(way.x);
        event.motion.yrel = static_cast<int>(way.y);
        SDL_PushEvent(&event);
        m_platform.setCursorPos(target);
    }
    void pushButton(unsigned button, bool pressed) override {
        SDL_Event event{};
        event.type = pressed ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.button = button == 0 ? SDL_BUTTON_LEFT : SDL_BUTTON_RIGHT;
        SDL_PushEvent(&event);
    }
    void pushKey(unsigned scan_code, bool pressed) override {
        constexpr unsigned escape = 1;  // the one key that the game itself listens to
        SDL_Event event{};
        event.type = pressed ? SDL_KEYDOWN : SDL_KEYUP;
        event.key.keysym.scancode = scan_code == escape ? SDL_SCANCODE_ESCAPE : SDL_SCANCODE_UNKNOWN;
        SDL_PushEvent(&event);
    }
    void shoot(const std::string& path) override {
        sImage image;
        if (!cGraphics::getInstance()->getDevice().readPicture(image))
            throw String("the display gives no picture");
        const auto bytes = encodePng(image, String(path));
        std::ofstream file(path, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush())
            throw String(path) + ": can't be written";
    }

private:
    cDrawingPlatform m_platform;
};

}  // namespace

std::unique_ptr<iMachine> makeHeadlessMachine(const std::filesystem::path& data, const std::filesystem::path& home) {
    return std::make_unique<cHeadlessMachine>(data, home);
}

std::unique_ptr<iMachine> makeDrawingMachine(const std::filesystem::path& data, const std::filesystem::path& home) {
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    return std::make_unique<cDrawingMachine>(data, home);
}

}  // namespace Simulate
