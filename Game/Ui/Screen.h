#pragma once

#include "Engine/Ui/View.h"

/// Brings a screen up: it fades in and takes input. Screens are views without a parent, since only those fade, and are
/// born hidden.
inline void showScreen(Engine::cView& screen) {
    screen.showTransparently();
    screen.enable();
}
