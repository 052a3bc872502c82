#pragma once

#include "Game/Types.h"

/// The music on the air: one piece, in a loop, outliving the screen that has put it on.
namespace Music {

/// Ends what is playing and begins this piece; an empty name, or a program without sound, means silence.
/// Throws what loading the sound throws.
void play(const String& name);

/// Before the sound manager goes.
void stop();

}  // namespace Music
