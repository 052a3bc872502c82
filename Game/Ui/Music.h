#pragma once

#include "Game/Types.h"

namespace Engine {
class iXML;
}

/// The music on the air: one piece, in a loop, outliving the screen that has put it on.
///
/// The pieces are named in "UI/Load.xml", each in the attribute "Sound" of a tag: "MainMenuMusic" is the menu's; of
/// several "GameMusic" the first is that of the map of levels, the others those of the levels in turn: of three, levels
/// 0, 2, 4 have the second and levels 1, 3, 5 the third. A single one is there for all of the game.
namespace Music {

/// Ends what is playing and begins this piece; an empty name, or a program without sound, means silence.
/// Throws what loading the sound throws.
void play(const String& name);

/// As play, but what is on the air already goes on.
void goOnWith(const String& name);

/// Before the sound manager goes.
void stop();

// The pieces that a document names. Without such a tag: the empty name.
String getMenuPiece(const Engine::iXML& load);
String getMapPiece(const Engine::iXML& load);
String getLevelPiece(const Engine::iXML& load, Int level);

void goOnWithMap();             ///< back on the map of levels
void goOnWithLevel(Int level);  ///< in a level

}  // namespace Music
