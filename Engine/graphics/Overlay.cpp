#include "Engine/graphics/Overlay.h"

#include "Engine/core/CallStack.h"
#include "Engine/graphics/SystemFont.h"

namespace Engine::Overlay {

namespace {

using namespace SystemFont;

constexpr UInt font_columns = 16;
constexpr UInt font_rows = (glyph_count + font_columns - 1) / font_columns;
constexpr UInt font_width = font_columns * glyph_width;
constexpr UInt font_height = font_rows * glyph_height;

iGraphics::sSprite makeRectangle(Vector2 from, Vector2 to, UInt color) {
    iGraphics::sSprite sprite;
    sprite.corners[0] = {from.x, from.y, color};
    sprite.corners[1] = {to.x, from.y, color};
    sprite.corners[2] = {from.x, to.y, color};
    sprite.corners[3] = {to.x, to.y, color};
    return sprite;
}

void addBand(cBatch& batch, Vector2 from, Vector2 to) {
    batch.add(makeRectangle(from, to, 0xFF000000), no_texture, renderOpaque, {});
}

/// Place of a character in the font's picture, counted from the top left.
UInt getGlyph(char character) {
    const UInt glyph = static_cast<UInt>(static_cast<unsigned char>(character)) - first_character;
    return glyph < glyph_count ? glyph : static_cast<UInt>('?' - first_character);
}

}  // namespace

Platform::sTextureSurface createFontTexture(Platform::iGraphicsDevice& device) {
    ENGINE_MARK;
    if (!device.needsPixels())
        return device.createTexture(font_width, font_height, nullptr);
    std::vector<std::uint8_t> pixels;
    pixels.reserve(std::size_t{font_width} * font_height * 4);
    for (UInt y = 0; y < font_height; ++y) {
        for (UInt x = 0; x < font_width; ++x) {
            const UInt glyph = y / glyph_height * font_columns + x / glyph_width;
            const Bool set = glyph < glyph_count && (glyphs[glyph][y % glyph_height] << (x % glyph_width) & 0x80) != 0;
            for (const UInt component : {255u, 255u, 255u, set ? 255u : 0u})
                pixels.push_back(static_cast<std::uint8_t>(component));
        }
    }
    return device.createTexture(font_width, font_height, pixels.data());
}

void addBands(cBatch& batch, Vector2 border, Vector2 display) {
    if (border.x > 0.0f) {
        addBand(batch, {0.0f, 0.0f}, {border.x, display.y});
        addBand(batch, {display.x - border.x, 0.0f}, display);
    } else if (border.y > 0.0f) {
        addBand(batch, {0.0f, 0.0f}, {display.x, border.y});
        addBand(batch, {0.0f, display.y - border.y}, display);
    }
}

void addText(cBatch& batch, const Platform::sTextureSurface& font, std::string_view text, Vector2 place, UInt color) {
    constexpr Vector2 glyph_size(glyph_width, glyph_height);
    const Vector2 cell(1.0f / static_cast<Float>(font_columns), 1.0f / static_cast<Float>(font_rows));
    for (const char character : text) {
        const UInt glyph = getGlyph(character);
        iGraphics::sSprite sprite = makeRectangle(place, place + glyph_size, color);
        sprite.u0 = static_cast<Float>(glyph % font_columns) * cell.x;
        const UInt row = glyph / font_columns;
        sprite.v0 = static_cast<Float>(row) * cell.y;
        sprite.u1 = sprite.u0 + cell.x;
        sprite.v1 = sprite.v0 + cell.y;
        batch.add(sprite, {font.handle, Vector2(1.0f)}, 0, {});
        place.x += glyph_size.x;
    }
}

}  // namespace Engine::Overlay
