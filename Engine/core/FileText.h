#pragma once

#include <string_view>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

class iFile;

/// Strings in files: raw units, or the Pascal form, a UInt32 length in front of them. All numbers and units are
/// little-endian, nothing ends with a zero.
///
/// Readers throw the plain string "Unexpected end of source" if the file has less than is asked for, before they
/// take memory for it. Writers throw "A file can't be written." if it takes less than all; a file for which the system
/// finds that out later says so in close().
void writeStringAsRaw(iFile* file, const char* data, ULong length);  ///< length in bytes
void readStringAsRaw(iFile* file, char* data, ULong length);
void writeWStringAsRaw(iFile* file, const char16_t* data, ULong length);  ///< length in units of two bytes
void readWStringAsRaw(iFile* file, char16_t* data, ULong length);
void writeStringAsPascal(iFile* file, std::string_view s);
void readStringAsPascal(iFile* file, String& s);  ///< a length of 0 leaves s as it is
void writeWStringAsPascal(iFile* file, std::u16string_view s);
void readWStringAsPascal(iFile* file, WString& s);  ///< a length of 0 leaves s as it is

/// Copies a file that stands at its start to the place where another stands.
/// Throws `File "<name>" can't be read to its end.`; what can't be written is told by the target's close().
/// @param name  of the file that is read, for its failure
void copyBytes(const String& name, iFile& from, iFile& to);

/// A file in the writable directory: the mark 0xFEFF and the text in UTF-16LE. It takes its place whole.
/// Throws as cFileManager::create and as the writers above.
void writeWStringAsXml(const String& filename, std::u16string_view data);

/// Replaces, in this order, "&" by "&amp;", "'" by "&apos;", ">" by "&gt;", "<" by "&lt;", '"' by "&quot;".
WString xmlEscape(const WString& text);

/// The text as it can stand between tags, or in an attribute's quotes, of a document that is read again.
///
/// Plain text stays byte for byte what it is. One that has "&", "<" or '"' in it goes through xmlEscape; units that no
/// document can hold (control characters, halves of pairs) become U+FFFD.
WString toXmlText(const WString& text);
/// The same for an attribute's value that keeps its line breaks and tabs.
WString toXmlAttribute(const WString& text);

/// "mm:ss", each with two digits at least; minutes go on beyond 59. What is below zero counts as zero.
WString secondsToText(Float seconds);

}  // namespace Engine
