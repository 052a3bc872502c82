#pragma once

#include <string_view>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// Texts of XML documents and settings to values. True if the whole value was read.
///
/// All forms skip white space in front and take the longest beginning of the text that is a number, so that "12 men"
/// is 12. A text that is empty, has no number in front or one out of range leaves the value as it is; of a value in
/// several parts, those read so far stay. The process's locale plays no part.
///
/// - Bool: the number 0 or 1; words don't parse.
/// - Int (also Long), LongLong: decimal, with an optional sign.
/// - UInt (also ULong): the same, or hexadecimal behind "0x". A negative number counts from the top: "-1" is the
///   largest.
/// - Float, Double: decimal with an optional exponent; infinities and not-a-numbers are no numbers here.
/// - Vector2, Vector3: two or three Floats with one comma or blank between them.
/// - DXColor: hexadecimal digits, optionally behind "0x": up to six are RRGGBB and leave alpha as it is, more are
///   AARRGGBB. Each part is its byte times 0.003921569.
/// - String: the text in UTF-8, cut to the characters that fit into 255 bytes.
Bool parseText(std::u16string_view text, Bool& value);
Bool parseText(std::u16string_view text, Int& value);
Bool parseText(std::u16string_view text, UInt& value);
Bool parseText(std::u16string_view text, LongLong& value);
Bool parseText(std::u16string_view text, Float& value);
Bool parseText(std::u16string_view text, Double& value);
Bool parseText(std::u16string_view text, Vector2& value);
Bool parseText(std::u16string_view text, Vector3& value);
Bool parseText(std::u16string_view text, DXColor& value);
Bool parseText(std::u16string_view text, String& value);
Bool parseText(std::u16string_view text, WString& value);

/// Values to the texts that settings are saved as; parseText reads them back.
///
/// Bool "1" or "0"; integers decimal; a Float or a Double with six significant digits ("0.333333"); a vector as two or
/// three of them with one blank between; a DXColor as "0x" and eight hexadecimal digits, AARRGGBB.
WString formatText(Bool value);
WString formatText(Int value);
WString formatText(UInt value);
WString formatText(LongLong value);
WString formatText(Float value);
WString formatText(Double value);
WString formatText(const Vector2& value);
WString formatText(const Vector3& value);
WString formatText(const DXColor& value);
WString formatText(const String& value);
WString formatText(const WString& value);

}  // namespace Engine
