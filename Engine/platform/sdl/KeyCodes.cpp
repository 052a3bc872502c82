#include "Engine/platform/sdl/KeyCodes.h"

#include <array>

#include "Engine/platform/Platform.h"

namespace Engine::Platform {

namespace {

struct sPair {
    SDL_Scancode key;
    std::uint8_t code;
};

// clang-format off
constexpr sPair keys[] = {
    {SDL_SCANCODE_ESCAPE, 1}, {SDL_SCANCODE_1, 2}, {SDL_SCANCODE_2, 3}, {SDL_SCANCODE_3, 4}, {SDL_SCANCODE_4, 5},
    {SDL_SCANCODE_5, 6}, {SDL_SCANCODE_6, 7}, {SDL_SCANCODE_7, 8}, {SDL_SCANCODE_8, 9}, {SDL_SCANCODE_9, 10},
    {SDL_SCANCODE_0, 11}, {SDL_SCANCODE_MINUS, 12}, {SDL_SCANCODE_EQUALS, 13}, {SDL_SCANCODE_BACKSPACE, 14},
    {SDL_SCANCODE_TAB, 15}, {SDL_SCANCODE_Q, 16}, {SDL_SCANCODE_W, 17}, {SDL_SCANCODE_E, 18}, {SDL_SCANCODE_R, 19},
    {SDL_SCANCODE_T, 20}, {SDL_SCANCODE_Y, 21}, {SDL_SCANCODE_U, 22}, {SDL_SCANCODE_I, 23}, {SDL_SCANCODE_O, 24},
    {SDL_SCANCODE_P, 25}, {SDL_SCANCODE_LEFTBRACKET, 26}, {SDL_SCANCODE_RIGHTBRACKET, 27}, {SDL_SCANCODE_RETURN, 28},
    {SDL_SCANCODE_LCTRL, 29}, {SDL_SCANCODE_A, 30}, {SDL_SCANCODE_S, 31}, {SDL_SCANCODE_D, 32}, {SDL_SCANCODE_F, 33},
    {SDL_SCANCODE_G, 34}, {SDL_SCANCODE_H, 35}, {SDL_SCANCODE_J, 36}, {SDL_SCANCODE_K, 37}, {SDL_SCANCODE_L, 38},
    {SDL_SCANCODE_SEMICOLON, 39}, {SDL_SCANCODE_APOSTROPHE, 40}, {SDL_SCANCODE_GRAVE, 41}, {SDL_SCANCODE_LSHIFT, 42},
    {SDL_SCANCODE_BACKSLASH, 43}, {SDL_SCANCODE_NONUSHASH, 43}, {SDL_SCANCODE_Z, 44}, {SDL_SCANCODE_X, 45},
    {SDL_SCANCODE_C, 46},
    {SDL_SCANCODE_V, 47}, {SDL_SCANCODE_B, 48}, {SDL_SCANCODE_N, 49}, {SDL_SCANCODE_M, 50}, {SDL_SCANCODE_COMMA, 51},
    {SDL_SCANCODE_PERIOD, 52}, {SDL_SCANCODE_SLASH, 53}, {SDL_SCANCODE_RSHIFT, 54}, {SDL_SCANCODE_KP_MULTIPLY, 55},
    {SDL_SCANCODE_LALT, 56}, {SDL_SCANCODE_SPACE, 57}, {SDL_SCANCODE_CAPSLOCK, 58}, {SDL_SCANCODE_F1, 59},
    {SDL_SCANCODE_F2, 60}, {SDL_SCANCODE_F3, 61}, {SDL_SCANCODE_F4, 62}, {SDL_SCANCODE_F5, 63}, {SDL_SCANCODE_F6, 64},
    {SDL_SCANCODE_F7, 65}, {SDL_SCANCODE_F8, 66}, {SDL_SCANCODE_F9, 67}, {SDL_SCANCODE_F10, 68},
    {SDL_SCANCODE_NUMLOCKCLEAR, 69}, {SDL_SCANCODE_SCROLLLOCK, 70}, {SDL_SCANCODE_KP_7, 71}, {SDL_SCANCODE_KP_8, 72},
    {SDL_SCANCODE_KP_9, 73}, {SDL_SCANCODE_KP_MINUS, 74}, {SDL_SCANCODE_KP_4, 75}, {SDL_SCANCODE_KP_5, 76},
    {SDL_SCANCODE_KP_6, 77}, {SDL_SCANCODE_KP_PLUS, 78}, {SDL_SCANCODE_KP_1, 79}, {SDL_SCANCODE_KP_2, 80},
    {SDL_SCANCODE_KP_3, 81}, {SDL_SCANCODE_KP_0, 82}, {SDL_SCANCODE_KP_PERIOD, 83}, {SDL_SCANCODE_NONUSBACKSLASH, 86},
    {SDL_SCANCODE_F11, 87}, {SDL_SCANCODE_F12, 88}, {SDL_SCANCODE_F13, 100}, {SDL_SCANCODE_F14, 101},
    {SDL_SCANCODE_F15, 102}, {SDL_SCANCODE_INTERNATIONAL2, 112}, {SDL_SCANCODE_INTERNATIONAL1, 115},
    {SDL_SCANCODE_INTERNATIONAL4, 121}, {SDL_SCANCODE_INTERNATIONAL5, 123}, {SDL_SCANCODE_INTERNATIONAL3, 125},
    {SDL_SCANCODE_KP_EQUALS, 141}, {SDL_SCANCODE_AUDIOPREV, 144}, {SDL_SCANCODE_STOP, 149},
    {SDL_SCANCODE_AUDIONEXT, 153}, {SDL_SCANCODE_KP_ENTER, 156}, {SDL_SCANCODE_RCTRL, 157}, {SDL_SCANCODE_MUTE, 160},
    {SDL_SCANCODE_AUDIOMUTE, 160},
    {SDL_SCANCODE_CALCULATOR, 161}, {SDL_SCANCODE_AUDIOPLAY, 162}, {SDL_SCANCODE_AUDIOSTOP, 164},
    {SDL_SCANCODE_VOLUMEDOWN, 174}, {SDL_SCANCODE_VOLUMEUP, 176}, {SDL_SCANCODE_AC_HOME, 178},
    {SDL_SCANCODE_KP_COMMA, 179}, {SDL_SCANCODE_KP_DIVIDE, 181}, {SDL_SCANCODE_PRINTSCREEN, 183},
    {SDL_SCANCODE_RALT, 184}, {SDL_SCANCODE_PAUSE, 197}, {SDL_SCANCODE_HOME, 199}, {SDL_SCANCODE_UP, 200},
    {SDL_SCANCODE_PAGEUP, 201}, {SDL_SCANCODE_LEFT, 203}, {SDL_SCANCODE_RIGHT, 205}, {SDL_SCANCODE_END, 207},
    {SDL_SCANCODE_DOWN, 208}, {SDL_SCANCODE_PAGEDOWN, 209}, {SDL_SCANCODE_INSERT, 210}, {SDL_SCANCODE_DELETE, 211},
    {SDL_SCANCODE_LGUI, 219}, {SDL_SCANCODE_RGUI, 220}, {SDL_SCANCODE_APPLICATION, 221}, {SDL_SCANCODE_POWER, 222},
    {SDL_SCANCODE_SLEEP, 223}, {SDL_SCANCODE_AC_SEARCH, 229}, {SDL_SCANCODE_AC_BOOKMARKS, 230},
    {SDL_SCANCODE_AC_REFRESH, 231}, {SDL_SCANCODE_AC_STOP, 232}, {SDL_SCANCODE_AC_FORWARD, 233},
    {SDL_SCANCODE_AC_BACK, 234}, {SDL_SCANCODE_COMPUTER, 235}, {SDL_SCANCODE_MAIL, 236},
    {SDL_SCANCODE_MEDIASELECT, 237},
};
// clang-format on

std::array<std::uint8_t, SDL_NUM_SCANCODES> makeTable() {
    std::array<std::uint8_t, SDL_NUM_SCANCODES> table{};
    for (const sPair& pair : keys)
        table[pair.key] = pair.code;
    return table;
}

}  // namespace

UInt toScanCode(SDL_Scancode key) {
    static const auto table = makeTable();
    return key >= 0 && key < SDL_NUM_SCANCODES ? table[key] : 0;
}

UInt toVirtualKey(SDL_Keycode key) {
    if (key >= 'a' && key <= 'z')
        return static_cast<UInt>(key - 'a' + 'A');
    if (key >= '0' && key <= '9')
        return static_cast<UInt>(key);
    if (key >= SDLK_F1 && key <= SDLK_F12)
        return vkF1 + static_cast<UInt>(key - SDLK_F1);
    switch (key) {
        case SDLK_BACKSPACE:
            return vkBack;
        case SDLK_TAB:
            return vkTab;
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            return vkReturn;
        case SDLK_ESCAPE:
            return vkEscape;
        case SDLK_SPACE:
            return vkSpace;
        case SDLK_PAGEUP:
            return vkPrior;
        case SDLK_PAGEDOWN:
            return vkNext;
        case SDLK_END:
            return vkEnd;
        case SDLK_HOME:
            return vkHome;
        case SDLK_LEFT:
            return vkLeft;
        case SDLK_UP:
            return vkUp;
        case SDLK_RIGHT:
            return vkRight;
        case SDLK_DOWN:
            return vkDown;
        case SDLK_INSERT:
            return vkInsert;
        case SDLK_DELETE:
            return vkDelete;
        default:
            return 0;
    }
}

}  // namespace Engine::Platform
