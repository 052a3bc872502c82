#include "Engine/core/String.h"

#include <algorithm>

#include "Engine/core/Types.h"

namespace Engine {

namespace {

constexpr char32_t replacement = 0xFFFD;

void appendUtf8(String& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
        return;
    }
    const int tail = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    static constexpr unsigned char heads[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(heads[tail] | (code >> (6 * tail)));
    for (int i = tail - 1; i >= 0; --i)
        out += static_cast<char>(0x80 | ((code >> (6 * i)) & 0x3F));
}

void appendUtf16(WString& out, char32_t code) {
    if (code < 0x10000) {
        out += static_cast<char16_t>(code);
        return;
    }
    out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

Bool isHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

Bool isLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Decodes one character at the head of the text and tells how many bytes it took.
char32_t decodeUtf8(std::string_view text, std::size_t& length) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    length = 1;
    const unsigned char head = byte(0);
    if (head < 0x80)
        return head;

    const std::size_t tail = head >= 0xF0 && head < 0xF5   ? 3
                             : head >= 0xE0 && head < 0xF0 ? 2
                             : head >= 0xC2 && head < 0xE0 ? 1
                                                           : 0;
    if (tail == 0 || text.size() <= tail)
        return replacement;
    char32_t code = head & (0x3Fu >> tail);
    for (std::size_t i = 1; i <= tail; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return replacement;
        code = code << 6 | (byte(i) & 0x3F);
    }
    static constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (code < smallest[tail] || code > 0x10FFFF || isHighSurrogate(code) || isLowSurrogate(code))
        return replacement;
    length = tail + 1;
    return code;
}

}  // namespace

String toNarrow(std::u16string_view text) {
    String out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t unit = text[i];
        if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            appendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (text[i + 1] - 0xDC00u));
            ++i;
        } else {
            appendUtf8(out, isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : unit);
        }
    }
    return out;
}

WString toWide(std::string_view text) {
    WString out;
    out.reserve(text.size());
    while (!text.empty()) {
        std::size_t length = 0;
        appendUtf16(out, decodeUtf8(text, length));
        text.remove_prefix(length);
    }
    return out;
}

String toLower(std::string_view text) {
    String out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return out;
}

String toFileKey(std::string_view name) {
    String out = toLower(name);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}

}  // namespace Engine
