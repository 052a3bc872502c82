#pragma once

#include <vector>

#include "Engine/core/String.h"

/// What datatool can do, one file each. All throw a String, in one line that names the file, when the data or the run
/// is at fault.
namespace Datatool {

/// Prints what a file holds as JSON; told by its bytes, not by its name, but for a player's ".save".
void inspect(const Engine::String& file);

/// Prints one line a finding about a data directory. False if there was any.
bool check(const Engine::String& directory);

/// Text XML to the binary form of the same tree.
void compile(const Engine::String& in, const Engine::String& out);

/// The binary form to text XML that reads back to the same tree. The binary form has no name for the root tag: "root".
void decompile(const Engine::String& in, const Engine::String& out);

/// All files of a directory as a pack. The same files give the same bytes.
void pack(const Engine::String& directory, const Engine::String& out);

/// Prints a resource log of files of a data directory, and of all that documents among them name and theirs in turn.
void makeResourceLog(const Engine::String& directory, const std::vector<Engine::String>& names);

}  // namespace Datatool
