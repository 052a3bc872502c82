#pragma once

#include "Engine/core/Types.h"

namespace Engine {

/// A key, button or axis and what happened to it. Codes 0 to 1100 index one set of handlers each.
using eControl = UInt;

namespace Control {

constexpr eControl key_press = 256;  ///< added to a scan code (1 to 237); the scan code alone is the key's release

constexpr eControl esc_release = 1;
constexpr eControl enter_release = 28;
constexpr eControl space_release = 57;
constexpr eControl left_alt_release = 56;
constexpr eControl left_alt_press = 312;
constexpr eControl right_alt_release = 184;
constexpr eControl right_alt_press = 440;
constexpr eControl print_screen_press = 439;

constexpr eControl mouse_release = 512;  ///< plus button 0 to 7
constexpr eControl mouse_press = 520;    ///< plus button 0 to 7
constexpr eControl left_release = 512;
constexpr eControl right_release = 513;
constexpr eControl left_press = 520;
constexpr eControl right_press = 521;
constexpr eControl mouse_x = 528;  ///< only given to mouse handlers
constexpr eControl mouse_y = 529;
constexpr eControl mouse_wheel = 530;

constexpr eControl joystick_release = 1024;  ///< plus button 0 to 31
constexpr eControl joystick_press = 1056;    ///< plus button 0 to 31
constexpr eControl joystick_axis = 1088;     ///< plus axis 0 to 7; only given to joystick handlers
constexpr eControl joystick_hat = 1096;      ///< plus hat 0 to 3; only given to joystick handlers

constexpr eControl any = 1100;  ///< its handlers run after those of each key and button event
constexpr UInt count = 1101;

}  // namespace Control

}  // namespace Engine
