#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "Engine/core/Resource.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

class cTrueType;

/// Where the characters lie in an atlas: a ".fnt" file. The picture itself is named by whoever draws.
///
/// The file, little-endian: the bytes 74 6E 6F 66; UInt32 number of ranges; for each u16 first character, u16 last
/// character, u16 index of its first glyph; UInt32 number of glyphs; for each five 32-bit Floats: left, top, right,
/// bottom (fractions of the atlas, counted from its lower edge), and advance (fraction of the atlas' width).
class cFont : public iResource {
public:
    struct sGlyph {
        Float left = 0.0f;
        Float top = 0.0f;
        Float right = 0.0f;
        Float bottom = 0.0f;
        Float advance = 0.0f;
    };

    /// Throws what opening the file throws; "Specified resourse (<name>) is not font." for other bytes in front;
    /// the plain string "Unexpected end of source" where the file is shorter than it says.
    explicit cFont(const String& name);
    cFont(const String& name, std::span<const std::uint8_t> bytes);

    ~cFont() override;

    eResourceType getType() const override { return eResourceType::font; }
    /// The same font drawn from TrueType files, as the document tells that has the font's name with ".xml" instead of
    /// ".fnt" (keys: cTrueType). Read at the first call. Throws what reading it throws.
    cTrueType& getTrueType();
    /// First and last character of each range, in order.
    std::vector<std::pair<char16_t, char16_t>> getRanges() const;
    std::size_t getGlyphCount() const { return m_glyphs.size(); }
    /// Null for a character that the font does not have.
    const sGlyph* getGlyph(char16_t character) const;

private:
    struct sRange {
        char16_t first = 0;
        UInt glyph = 0;  ///< of the first character
    };

    void read(std::span<const std::uint8_t> bytes);
    Float readFraction(Float value) const;

    std::map<char16_t, sRange> m_ranges;  ///< by their last character
    std::vector<sGlyph> m_glyphs;
    std::unique_ptr<cTrueType> m_true_type;
};

}  // namespace Engine
