#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"
#include "Engine/graphics/image/Image.h"

namespace Engine {

class iXML;

/// Text of any language drawn from TrueType fonts, for what the atlases don't hold.
///
/// Scripts are shaped (joined letters, marks) and run from right to left where they do. Characters come from the first
/// of the fonts that has them. Only a single line at a time; newlines are left out.
class cTrueType {
public:
    /// The keys of a font's description: "Files" (font files, parted by ";", the first one sets the line's height),
    /// "Size" (pixels), "Outline" (pixels, 0 for none), "OutlineColor".
    /// Throws what opening a file throws, `Font "<name>": ` and what is wrong.
    explicit cTrueType(const iXML& description);
    /// One font from its bytes; the name is for failures.
    cTrueType(const String& name, std::vector<std::uint8_t> bytes, UInt size, Float outline);
    ~cTrueType();
    cTrueType(const cTrueType&) = delete;
    cTrueType& operator=(const cTrueType&) = delete;

    Bool hasChar(char16_t character) const;
    Float measure(std::u16string_view text);  ///< pixels from the first pen position to the last
    UInt getLineHeight() const;               ///< pixels, with the outline
    /// White letters with their outline, the pen beginning getMargin() from the left. Empty for a text without width.
    /// At most max_image_side wide; what is beyond is cut off.
    sImage draw(std::u16string_view text);
    /// The size of the picture of a text of that width, without pixels.
    sImage makeSheet(Float width) const;
    UInt getMargin() const;  ///< pixels between a picture's edge and the pen, at either side

private:
    struct sFace;
    struct sGlyph;
    struct sLibrary;

    std::size_t findFace(char32_t character) const;
    std::vector<sGlyph> shape(std::u16string_view text);
    void shapeRun(const std::u32string& text, std::size_t begin, std::size_t end, Bool right_to_left,
                  std::vector<sGlyph>& glyphs);

    static Float getWidth(const std::vector<sGlyph>& glyphs);
    void drawGlyphs(const std::vector<sGlyph>& glyphs, Bool is_outline, sImage& image);

    std::unique_ptr<sLibrary> m_library;  ///< first made, last to go
    std::vector<sFace> m_faces;
    Float m_outline = 0.0f;
    DXColor m_outline_color{0, 0, 0, 1};
};

}  // namespace Engine
