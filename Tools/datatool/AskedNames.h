#pragma once

#include <functional>
#include <vector>

#include "Engine/core/iXML.h"

/// What the code asks the data for by a name of its own: looks of level objects, sounds, texts.
///
/// Whatever is asked for and not there is left out of the game without a word: a load that can't be seen, a silent
/// hammer, an empty tip. The tables stand in AskedNames.cpp; code that asks for a new name gets it there too.
namespace Datatool {

/// The looks ("States") that an object of a type is asked for and that nothing stands in for, in the order of the
/// table; how many depends on its definition: levels, steps of its load.
std::vector<Engine::String> getAskedLooks(Engine::Int type, const Engine::iXML& definition);

/// The ids of "Sounds/GameSounds.xml".
std::vector<Engine::String> getAskedSounds();

/// The ids of "GameStrings.xml" and "YesNoStrings.xml", which are one table to the game.
std::vector<Engine::String> getAskedTexts();

/// Tells of everything that is asked for and missing, by the file where it belongs. A file that is not there or can't
/// be read is passed over. Needs the game's file and resource managers.
void checkAskedNames(const std::function<void(const Engine::String& file, const Engine::String& what)>& find);

}  // namespace Datatool
