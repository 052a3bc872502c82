#include "Engine/core/FileText.h"

#include <algorithm>
#include <array>
#include <bit>

#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"

namespace Engine {

static_assert(std::endian::native == std::endian::little, "units are written to files as they lie in memory");

namespace {

constexpr Float most_seconds = 1.0e9f;

void writeAll(iFile* file, const void* data, std::size_t bytes) {
    if (bytes > 0xFFFFFFFFu || file->write(data, static_cast<ULong>(bytes)) != bytes)
        throw "A file can't be written.";
}

void readAll(iFile* file, void* data, std::size_t bytes) {
    if (bytes > 0xFFFFFFFFu || file->read(data, static_cast<ULong>(bytes)) != bytes)
        throw "Unexpected end of source";
}

template <class CHAR>
void writePascal(iFile* file, std::basic_string_view<CHAR> s) {
    const ULong length = static_cast<ULong>(s.size());
    writeAll(file, &length, sizeof(length));
    if (length > 0)
        writeAll(file, s.data(), s.size() * sizeof(CHAR));
}

/// The length may be a lie: it is held against the whole file before memory is taken.
template <class STRING>
void readPascal(iFile* file, STRING& s) {
    constexpr std::size_t unit = sizeof(typename STRING::value_type);
    ULong length = 0;
    readAll(file, &length, sizeof(length));
    if (length == 0)
        return;
    if (length > file->getSize() / unit)
        throw "Unexpected end of source";
    STRING text;
    text.resize(length);
    readAll(file, text.data(), length * unit);
    s = std::move(text);
}

void replaceAll(WString& text, char16_t unit, std::u16string_view replacement) {
    for (std::size_t at = text.find(unit); at != WString::npos; at = text.find(unit, at + replacement.size()))
        text.replace(at, 1, replacement);
}

Bool isUnknownToXml(char16_t unit) {
    return (unit < 0x20 && unit != u'\t' && unit != u'\n' && unit != u'\r') || unit >= 0xFFFE;
}

/// Half a pair at this place.
Bool isHalfPair(const WString& text, std::size_t at) {
    const auto is_high = [&](std::size_t i) { return i < text.size() && (text[i] & 0xFC00) == 0xD800; };
    const auto is_low = [&](std::size_t i) { return i < text.size() && (text[i] & 0xFC00) == 0xDC00; };
    return is_high(at) ? !is_low(at + 1) : is_low(at) && (at == 0 || !is_high(at - 1));
}

std::u16string twoDigits(Int number) {
    const WString digits = toWide(std::to_string(number));
    return std::u16string(digits.size() < 2 ? 2 - digits.size() : 0, u'0') + digits;
}

}  // namespace

void writeStringAsRaw(iFile* file, const char* data, ULong length) {
    writeAll(file, data, length);
}

void readStringAsRaw(iFile* file, char* data, ULong length) {
    readAll(file, data, length);
}

void writeWStringAsRaw(iFile* file, const char16_t* data, ULong length) {
    writeAll(file, data, std::size_t{length} * sizeof(char16_t));
}

void readWStringAsRaw(iFile* file, char16_t* data, ULong length) {
    readAll(file, data, std::size_t{length} * sizeof(char16_t));
}

void writeStringAsPascal(iFile* file, std::string_view s) {
    writePascal(file, s);
}

void readStringAsPascal(iFile* file, String& s) {
    readPascal(file, s);
}

void writeWStringAsPascal(iFile* file, std::u16string_view s) {
    writePascal(file, s);
}

void readWStringAsPascal(iFile* file, WString& s) {
    readPascal(file, s);
}

void copyBytes(const String& name, iFile& from, iFile& to) {
    std::array<char, 64 * 1024> part;
    for (ULong left = from.getSize(); left > 0;) {
        const ULong size = std::min(left, static_cast<ULong>(part.size()));
        if (from.read(part.data(), size) != size)
            throw String("File \"" + name + "\" can't be read to its end.");
        to.write(part.data(), size);
        left -= size;
    }
}

void writeWStringAsXml(const String& filename, std::u16string_view data) {
    ENGINE_MARK;
    const char16_t mark = 0xFEFF;
    const std::unique_ptr<iFile> file = cFileManager::getInstance()->create(filename, true);
    writeWStringAsRaw(file.get(), &mark, 1);
    writeWStringAsRaw(file.get(), data.data(), static_cast<ULong>(data.size()));
    file->close();
}

WString xmlEscape(const WString& text) {
    WString result = text;
    replaceAll(result, u'&', u"&amp;");
    replaceAll(result, u'\'', u"&apos;");
    replaceAll(result, u'>', u"&gt;");
    replaceAll(result, u'<', u"&lt;");
    replaceAll(result, u'"', u"&quot;");
    return result;
}

WString toXmlText(const WString& text) {
    WString result = text;
    for (std::size_t i = 0; i < result.size(); ++i) {
        if (isUnknownToXml(result[i]) || isHalfPair(result, i))
            result[i] = 0xFFFD;
    }
    const Bool breaks_markup = result.find_first_of(u"&<\"") != WString::npos || result.find(u"]]>") != WString::npos;
    return breaks_markup ? xmlEscape(result) : result;
}

WString toXmlAttribute(const WString& text) {
    WString result;
    for (const char16_t unit : toXmlText(text)) {
        if (unit == u'\n')
            result += u"&#10;";
        else if (unit == u'\r')
            result += u"&#13;";
        else if (unit == u'\t')
            result += u"&#9;";
        else
            result += unit;
    }
    return result;
}

WString secondsToText(Float seconds) {
    // A comparison with a not-a-number is false and leads to zero too.
    const Int whole = seconds > 0.0f ? static_cast<Int>(std::min(seconds, most_seconds)) : 0;
    return WString(twoDigits(whole / 60) + u":" + twoDigits(whole % 60));
}

}  // namespace Engine
