#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Engine/core/File.h"
#include "Engine/core/String.h"
#include "Engine/core/XML.h"

namespace Datatool {

using BYTES = std::vector<char>;

/// All that is left of an open file.
BYTES readAll(Engine::iFile& file);

/// A real file for reading. Throws `File "<path>" not found.`.
std::unique_ptr<Engine::iFile> openFile(const Engine::String& path);

/// Replaces a real file, whole or not at all. Throws with the path and the system's message.
void writeFile(const Engine::String& path, const BYTES& bytes);

/// Reads a document in either form. Throws "<name>: <reason>".
std::unique_ptr<Engine::cXML> readXML(const Engine::String& name, Engine::iFile& file);

/// The binary form of a document.
BYTES toBinary(const Engine::cXML& document);

/// The text as one line of output: each control character, which a file's name may hold, becomes "?".
Engine::String toLine(std::string_view text);

}  // namespace Datatool
