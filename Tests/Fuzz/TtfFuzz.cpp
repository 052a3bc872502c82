// Any bytes as a TrueType font that then has to draw a line of several scripts.

#include "Engine/core/String.h"
#include "Engine/graphics/text/TrueType.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Engine;
    try {
        cTrueType font("fuzz.ttf", std::vector<std::uint8_t>(data, data + size), 24, 1.5f);
        for (const std::u16string_view text : {u"Ab 12", u"\u0628\u0628 \u0661 (\u05D0)"}) {
            const sImage image = font.draw(text);
            if (image.width > max_image_side || image.pixels.size() != std::size_t{image.width} * image.height * 4)
                __builtin_trap();
        }
    } catch (const String&) {
    }
    return 0;
}
