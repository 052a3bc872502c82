#pragma once

#include "Engine/core/File.h"
#include "Engine/core/XMLBuilder.h"

namespace Engine {

/// The binary form of a document: the byte ">" and then the root tag. A tag is
///
///     UInt32 number of attributes, for each: WString name, WString value
///     UInt32 number of child tags, for each: String tag name, the tag
///     WString text
///
/// Numbers are little-endian. A string is its UInt32 number of characters and the characters: bytes of UTF-8 in a
/// String, units of UTF-16LE in a WString. Attributes and children stand in their sorted order. The root's name is
/// not kept.
constexpr char binary_xml_mark = '>';

/// Reads a whole binary document, from its file's start, into the builder, which is then finished.
/// @param size  of the file in bytes
/// Throws a String that tells what is wrong and at which byte: cut off, a count that the rest of the bytes can't hold,
/// tags nested too deep, bytes behind the end. Throws the plain string "Unexpected end of source" for a file that has
/// less than its size says.
void readXMLBinary(iFile& file, ULong size, cXMLBuilder& builder);

/// Writes one tag with all that is in it, without the mark. Throws what writing strings throws.
void writeXMLBinary(iFile& file, const cXMLTag& tag);

}  // namespace Engine
