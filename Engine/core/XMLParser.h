#pragma once

#include "Engine/core/File.h"
#include "Engine/core/XMLBuilder.h"

namespace Engine {

/// Parses a whole text document, from its file's start, into the builder, which is then finished.
///
/// Entities of a document type declaration are expanded within the parser's own bounds on their growth; more than 1000
/// of them, and anything outside the document, are not read.
/// @param size  of the file in bytes, at most 2^30
/// Throws a String: the error, " line ", its line from 1, " char ", its column from 0. Throws the plain string
/// "Unexpected end of source" for a file that has less than its size says.
void parseXMLText(iFile& file, ULong size, cXMLBuilder& builder);

}  // namespace Engine
