// tour DIR: starts the real game without a display, plays it through its real input path, and leaves pictures of what
// it saw in DIR. The clock is stepped by hand, so the pictures are the same on every machine.
#include <SDL.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <vector>

#include "Engine/graphics/Graphics.h"
#include "Engine/graphics/image/Image.h"
#include "Engine/platform/sdl/SdlPlatform.h"
#include "Game/Entry.h"

using namespace Engine;

namespace {

constexpr UInt frame_ms = 20;

Vector2 cursor{-1.0f, -1.0f};  ///< in the window, pixels

/// One thing to do before the first frame at or after its time.
struct sStep {
    Float time;  ///< seconds since the start
    std::function<void()> act;
};

/// The desktop platform with a clock that stands between frames and a hand that follows a script.
class cTourPlatform : public Platform::cSdlPlatform {
public:
    explicit cTourPlatform(std::vector<sStep> steps) : m_steps(std::move(steps)) {}

    UInt getMilliseconds() override { return m_now; }
    void sleep(UInt milliseconds) override { m_now += milliseconds; }
    /// The video driver without a display has no pointer of its own.
    Vector2 getCursorPos() override {
        Float rect[4];
        cGraphics::getInstance()->getWindowRect(rect);
        return Vector2(rect[0], rect[1]) + cursor;
    }

    Bool takeMessage(Platform::sMessage& message) override {
        if (cSdlPlatform::takeMessage(message))
            return true;
        m_now += frame_ms;
        while (m_next < m_steps.size() && m_steps[m_next].time * 1000.0f <= static_cast<Float>(m_now))
            m_steps[m_next++].act();
        return cSdlPlatform::takeMessage(message);
    }

private:
    std::vector<sStep> m_steps;
    std::size_t m_next = 0;
    UInt m_now = 0;
};

void moveTo(int x, int y) {
    const Vector2 target(static_cast<Float>(x), static_cast<Float>(y));
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = x;
    event.motion.y = y;
    event.motion.xrel = static_cast<int>(target.x - cursor.x);
    event.motion.yrel = static_cast<int>(target.y - cursor.y);
    SDL_PushEvent(&event);
    cursor = target;
}

void pushButton(Uint32 type) {
    SDL_Event event{};
    event.type = type;
    event.button.button = SDL_BUTTON_LEFT;
    SDL_PushEvent(&event);
}

void press() {
    pushButton(SDL_MOUSEBUTTONDOWN);
}

void release() {
    pushButton(SDL_MOUSEBUTTONUP);
}

void pushKey(SDL_Keycode key, SDL_Scancode code) {
    for (const Uint32 type : {SDL_KEYDOWN, SDL_KEYUP}) {
        SDL_Event event{};
        event.type = type;
        event.key.keysym.sym = key;
        event.key.keysym.scancode = code;
        SDL_PushEvent(&event);
    }
}

/// Saves the picture that the player has before him.
void shoot(const std::string& path) {
    sImage image;
    if (!cGraphics::getInstance()->getDevice().readPicture(image))
        throw String("The display gives no picture.");
    const auto bytes = encodePng(image, String(path));
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw String("Can't write \"" + path + "\".");
    std::printf("%s\n", path.c_str());
}

/// The whole tour: logos, one of them skipped, the start screen with each of its buttons, and out by Esc.
std::vector<sStep> makeTour(const std::string& out) {
    const auto shot = [&](const char* name) { return [path = out + "/" + name] { shoot(path); }; };
    const auto at = [](int x, int y) { return [x, y] { moveTo(x, y); }; };
    return {
        {1.0f, shot("1-logo-fading-in.png")},
        {3.9f, shot("2-logo.png")},
        {5.0f, [] { pushKey(SDLK_SPACE, SDL_SCANCODE_SPACE); }},  // past the second one
        {8.0f, shot("3-title.png")},
        {9.4f, shot("4-title-fading-out.png")},
        {10.5f, shot("5-start-screen.png")},
        {10.6f, at(661, 456)},
        {10.8f, shot("6-sign-hovered.png")},
        {10.9f, press},
        {11.0f, shot("7-sign-pressed.png")},
        {11.1f, at(400, 100)},  // let go elsewhere: no click
        {11.2f, release},
        {11.4f, at(201, 330)},
        {11.6f, shot("8-mill-hovered.png")},
        {11.7f, press},
        {11.8f, release},
        {12.0f, at(700, 380)},
        {12.2f, shot("9-switch-hovered.png")},
        {12.4f, [] { pushKey(SDLK_ESCAPE, SDL_SCANCODE_ESCAPE); }},
    };
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || argv[1][0] == '-') {
        std::fprintf(stderr, "usage: tour DIR\nPlays the game without a display and leaves pictures in DIR.\n");
        return argc == 2 && std::string_view(argv[1]) == "--help" ? 0 : 2;
    }
    std::error_code error;
    std::filesystem::create_directories(argv[1], error);
    const std::string home = std::filesystem::absolute(argv[1]).string() + "/home";
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    setenv("XDG_DATA_HOME", home.c_str(), 1);

    cTourPlatform platform(makeTour(argv[1]));
    return runGame(platform);
}
