#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"
#include "Engine/graphics/image/Image.h"
#include "Tests/Support/HeadlessProgram.h"
#include "Tests/Support/TestImages.h"

/// A font whose letters are easy to reckon with: quads of 10 x 20 units with an advance of 8, on an atlas of 100 x 100.
namespace TestFont {

struct sRange {
    char16_t first;
    char16_t last;
    std::uint16_t glyph;
};

template <class T>
void put(std::string& bytes, T value) {
    char raw[sizeof(T)];
    std::memcpy(raw, &value, sizeof(T));
    bytes.append(raw, sizeof(T));
}

inline std::string write(const std::vector<sRange>& ranges, Engine::UInt glyphs, Engine::UInt magic = 0x666F6E74) {
    std::string bytes;
    put(bytes, magic);
    put(bytes, static_cast<Engine::UInt>(ranges.size()));
    for (const sRange& range : ranges) {
        put(bytes, range.first);
        put(bytes, range.last);
        put(bytes, range.glyph);
    }
    put(bytes, glyphs);
    for (Engine::UInt i = 0; i < glyphs; ++i) {
        for (const float value : {0.2f, 0.9f, 0.3f, 0.7f, 0.08f})
            put(bytes, value);
    }
    return bytes;
}

/// Files "f.fnt" (space apart: digits, capitals, small letters) and "f.png" for a program's data.
inline void install(Engine::cHeadlessProgram& program) {
    program.write("f.fnt", write({{u'0', u'9', 0}, {u'A', u'Z', 10}, {u'a', u'z', 36}}, 62));
    const auto png = Engine::encodePng(TestImages::makeGradient(100, 100), "f.png");
    program.write("f.png", std::string(png.begin(), png.end()));
}

/// The attributes of a line in that font.
inline const std::string attributes = R"( Font="f.fnt" Texture="f.png" SpaceWidth="5" Visible="1" Enable="1" )";

}  // namespace TestFont
