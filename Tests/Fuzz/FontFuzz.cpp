// Any bytes as a font. What it let through has to be sound: each glyph that it gives lies near the picture.

#include <memory>

#include "Engine/Ui/Font.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Engine;
    std::unique_ptr<cFont> font;
    try {
        font = std::make_unique<cFont>("fuzz.fnt", std::span(data, size));
    } catch (const String&) {
        return 0;
    } catch (const char*) {
        return 0;
    }
    for (UInt character = 0; character <= 0xFFFF; ++character) {
        const cFont::sGlyph* glyph = font->getGlyph(static_cast<char16_t>(character));
        if (!glyph)
            continue;
        for (const Float value : {glyph->left, glyph->top, glyph->right, glyph->bottom, glyph->advance}) {
            if (!(value >= -1.0f && value <= 2.0f))
                __builtin_trap();
        }
    }
    return 0;
}
