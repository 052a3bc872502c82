#include "Engine/core/TextConvert.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace Engine {

namespace {

constexpr Float byte_to_part = 0.003921569f;
constexpr std::size_t longest_narrow = 255;

Bool isSpace(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

Bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

void skipSpace(std::u16string_view& text) {
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
}

/// Takes a sign off the front of the text. True if it was a minus.
Bool takeSign(std::u16string_view& text) {
    if (text.empty() || (text.front() != u'-' && text.front() != u'+'))
        return false;
    const Bool is_negative = text.front() == u'-';
    text.remove_prefix(1);
    return is_negative;
}

/// The value of a digit; 16 for what is none.
UInt toDigit(char16_t unit) {
    if (isDigit(unit))
        return unit - u'0';
    const UInt letter = (unit | 0x20u) - u'a';
    return letter < 6 ? letter + 10 : 16;
}

/// Takes the digits at the front of the text; gives their number, 0 if they are more than 64 bits hold.
std::size_t takeDigits(std::u16string_view& text, UInt base, ULongLong& value) {
    std::size_t count = 0;
    Bool fits = true;
    for (value = 0; !text.empty() && toDigit(text.front()) < base; ++count, text.remove_prefix(1)) {
        const UInt digit = toDigit(text.front());
        fits = fits && value <= (std::numeric_limits<ULongLong>::max() - digit) / base;
        value = value * base + digit;
    }
    return fits ? count : 0;
}

/// A signed number of type T, its magnitude at most that of the type's limits.
template <class T>
Bool parseSigned(std::u16string_view text, T& value) {
    skipSpace(text);
    const Bool is_negative = takeSign(text);
    ULongLong magnitude = 0;
    const ULongLong limit = static_cast<ULongLong>(std::numeric_limits<T>::max()) + (is_negative ? 1 : 0);
    if (takeDigits(text, 10, magnitude) == 0 || magnitude > limit)
        return false;
    value = static_cast<T>(is_negative ? 0 - magnitude : magnitude);
    return true;
}

/// Takes the units of a decimal number off the front of the text, in ASCII.
std::string takeRealToken(std::u16string_view& text) {
    std::string token;
    const auto take = [&] {
        token += static_cast<char>(text.front());
        text.remove_prefix(1);
    };
    const auto takeDigitRow = [&] {
        while (!text.empty() && isDigit(text.front()))
            take();
    };
    takeDigitRow();
    if (!text.empty() && text.front() == u'.') {
        take();
        takeDigitRow();
    }
    const std::size_t sign = text.size() > 1 && (text[1] == u'-' || text[1] == u'+') ? 1 : 0;
    if (text.size() > 1 + sign && (text[0] | 0x20) == u'e' && isDigit(text[1 + sign])) {
        for (std::size_t i = 0; i <= sign; ++i)
            take();
        takeDigitRow();
    }
    return token;
}

Bool convertReal(const std::string& token, Double& value) {
    return std::from_chars(token.data(), token.data() + token.size(), value).ec == std::errc();
}

/// A number too small for a Float is 0; one too large doesn't parse.
Bool convertReal(const std::string& token, Float& value) {
    const std::errc error = std::from_chars(token.data(), token.data() + token.size(), value).ec;
    if (error != std::errc::result_out_of_range)
        return error == std::errc();
    Double wide = 0.0;
    if (!convertReal(token, wide) || wide > 1.0)
        return false;
    value = static_cast<Float>(wide);
    return true;
}

/// Takes a number off the front of the text.
template <class T>
Bool takeReal(std::u16string_view& text, T& value) {
    skipSpace(text);
    const Bool is_negative = takeSign(text);
    T magnitude = 0;
    if (!convertReal(takeRealToken(text), magnitude) || !std::isfinite(magnitude))
        return false;
    value = is_negative ? -magnitude : magnitude;
    return true;
}

Bool takeSeparator(std::u16string_view& text) {
    if (text.empty() || (text.front() != u',' && !isSpace(text.front())))
        return false;
    text.remove_prefix(1);
    return true;
}

template <class VECTOR>
Bool parseVector(std::u16string_view text, VECTOR& value) {
    for (int i = 0; i < VECTOR::length(); ++i) {
        if ((i > 0 && !takeSeparator(text)) || !takeReal(text, value[i]))
            return false;
    }
    return true;
}

/// ASCII from the standard converters, widened.
template <class... ARGUMENTS>
WString format(ARGUMENTS... arguments) {
    std::array<char, 64> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), arguments...);
    return WString(std::u16string(text.data(), result.ptr));
}

}  // namespace

Bool parseText(std::u16string_view text, Bool& value) {
    Int number = 0;
    if (!parseText(text, number) || number < 0 || number > 1)
        return false;
    value = number == 1;
    return true;
}

Bool parseText(std::u16string_view text, Int& value) {
    return parseSigned(text, value);
}

Bool parseText(std::u16string_view text, UInt& value) {
    const Bool is_hex = text.starts_with(u"0x");
    if (is_hex)
        text.remove_prefix(2);
    skipSpace(text);
    const Bool is_negative = takeSign(text);
    ULongLong magnitude = 0;
    if (takeDigits(text, is_hex ? 16 : 10, magnitude) == 0 || magnitude > std::numeric_limits<UInt>::max())
        return false;
    value = static_cast<UInt>(is_negative ? 0 - magnitude : magnitude);
    return true;
}

Bool parseText(std::u16string_view text, LongLong& value) {
    return parseSigned(text, value);
}

Bool parseText(std::u16string_view text, Float& value) {
    return takeReal(text, value);
}

Bool parseText(std::u16string_view text, Double& value) {
    return takeReal(text, value);
}

Bool parseText(std::u16string_view text, Vector2& value) {
    return parseVector(text, value);
}

Bool parseText(std::u16string_view text, Vector3& value) {
    return parseVector(text, value);
}

Bool parseText(std::u16string_view text, DXColor& value) {
    skipSpace(text);
    if (text.starts_with(u"0x"))
        text.remove_prefix(2);
    ULongLong packed = 0;
    const std::size_t digits = takeDigits(text, 16, packed);
    if (digits == 0 || packed > std::numeric_limits<UInt>::max())
        return false;
    const auto part = [&](UInt shift) { return static_cast<Float>(packed >> shift & 0xFF) * byte_to_part; };
    value = {part(16), part(8), part(0), digits < 7 ? value.a : part(24)};
    return true;
}

Bool parseText(std::u16string_view text, String& value) {
    if (text.empty())
        return false;
    // No unit is less than a byte, and a pair is kept whole, so this much is enough to fill the limit.
    value = toNarrow(text.substr(0, longest_narrow + 1));
    if (value.size() > longest_narrow) {
        std::size_t end = longest_narrow;
        while ((static_cast<unsigned char>(value[end]) & 0xC0) == 0x80)
            --end;
        value.resize(end);
    }
    return true;
}

Bool parseText(std::u16string_view text, WString& value) {
    if (text.empty())
        return false;
    value.assign(text);
    return true;
}

WString formatText(Bool value) {
    return value ? u"1" : u"0";
}

WString formatText(Int value) {
    return format(value);
}

WString formatText(UInt value) {
    return format(value);
}

WString formatText(LongLong value) {
    return format(value);
}

WString formatText(Float value) {
    return format(value, std::chars_format::general, 6);
}

WString formatText(Double value) {
    return format(value, std::chars_format::general, 6);
}

WString formatText(const Vector2& value) {
    return WString(formatText(value.x) + u" " + formatText(value.y));
}

WString formatText(const Vector3& value) {
    return WString(formatText(value.x) + u" " + formatText(value.y) + u" " + formatText(value.z));
}

WString formatText(const DXColor& value) {
    const WString digits = format(toPackedColor(value), 16);
    return WString(u"0x" + std::u16string(8 - digits.size(), u'0') + digits);
}

WString formatText(const String& value) {
    return toWide(value);
}

WString formatText(const WString& value) {
    return value;
}

}  // namespace Engine
