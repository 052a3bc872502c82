#pragma once

#include "Game/Types.h"

/// Tells the player of something that went wrong, in a box over the game that waits for him.
/// @param text  as it is, or one that has a translation
void tellPlayer(const WString& text);
