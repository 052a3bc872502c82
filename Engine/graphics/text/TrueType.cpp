#include "Engine/graphics/text/TrueType.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_GLYPH_H
#include FT_STROKER_H
#include <fribidi.h>
#include <hb-ft.h>
#include <hb.h>

#include <algorithm>
#include <cmath>
#include <numeric>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/WholeFile.h"

namespace Engine {

namespace {

constexpr UInt smallest_size = 4;   // pixels
constexpr UInt largest_size = 200;  // pixels
constexpr Float largest_outline = 16.0f;
constexpr FT_Pos largest_line = 2048;   // pixels of height, whatever a font says
constexpr FT_Pos largest_glyph = 2048;  // pixels a side; what is larger is left out
constexpr Float unit = 1.0f / 64.0f;    // FreeType and HarfBuzz count in parts of a pixel
constexpr FT_Int32 load_flags = FT_LOAD_NO_BITMAP | FT_LOAD_NO_HINTING;

std::u32string toCodePoints(std::u16string_view text) {
    std::u32string res;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        const Bool is_pair =
            c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
        if (is_pair)
            res += static_cast<char32_t>(0x10000 + ((char32_t{c} - 0xD800) << 10) + (char32_t{text[++i]} - 0xDC00));
        else if (c >= 32)
            res += c;
    }
    return res;
}

/// Characters that run one way: from `begin` to before `end`. An odd level runs from right to left.
struct sRun {
    std::size_t begin = 0;
    std::size_t end = 0;
    int level = 0;
};

/// The runs of a line from left to right, as the Unicode bidirectional algorithm sets them; the line's own direction is
/// that of its first letter.
std::vector<sRun> findRuns(const std::u32string& text) {
    const auto length = static_cast<FriBidiStrIndex>(text.size());
    const auto* points = reinterpret_cast<const FriBidiChar*>(text.data());
    std::vector<FriBidiCharType> types(text.size());
    std::vector<FriBidiBracketType> brackets(text.size());
    std::vector<FriBidiLevel> levels(text.size());
    FriBidiParType direction = FRIBIDI_PAR_ON;
    fribidi_get_bidi_types(points, length, types.data());
    fribidi_get_bracket_types(points, length, types.data(), brackets.data());
    if (fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), length, &direction, levels.data()) == 0)
        throw String("A text's direction can't be found.");

    std::vector<sRun> runs;
    int highest = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (runs.empty() || runs.back().level != levels[i])
            runs.push_back({i, i, levels[i]});
        runs.back().end = i + 1;
        highest = std::max(highest, runs.back().level);
    }
    // What lies at a level or above it is turned round as a whole, from the highest level to the lowest.
    for (int level = highest; level > 0; --level) {
        const auto is_below = [level](const sRun& run) { return run.level < level; };
        for (auto begin = runs.begin(); begin != runs.end();) {
            begin = std::find_if_not(begin, runs.end(), is_below);
            const auto end = std::find_if(begin, runs.end(), is_below);
            std::reverse(begin, end);
            begin = end;
        }
    }
    return runs;
}

/// A broken font may hold a letter as large as a field.
Bool isOfReason(FT_Glyph glyph) {
    FT_BBox box;
    FT_Glyph_Get_CBox(glyph, FT_GLYPH_BBOX_PIXELS, &box);
    return box.xMax - box.xMin <= largest_glyph && box.yMax - box.yMin <= largest_glyph;
}

/// Puts a grey bitmap of that colour over what is there.
void blend(sImage& image, const FT_Bitmap& bitmap, Int left, Int top, const DXColor& color) {
    const UInt packed = toPackedColor(color);
    const Float source[3] = {static_cast<Float>(packed >> 16 & 0xFF), static_cast<Float>(packed >> 8 & 0xFF),
                             static_cast<Float>(packed & 0xFF)};
    for (Int y = 0; y < static_cast<Int>(bitmap.rows); ++y) {
        for (Int x = 0; x < static_cast<Int>(bitmap.width); ++x) {
            const Int px = left + x;
            const Int py = top + y;
            if (px < 0 || py < 0 || px >= static_cast<Int>(image.width) || py >= static_cast<Int>(image.height))
                continue;
            const Float alpha = static_cast<Float>(bitmap.buffer[y * bitmap.pitch + x]) / 255.0f * color.a;
            std::uint8_t* pixel =
                &image.pixels[(static_cast<std::size_t>(py) * image.width + static_cast<std::size_t>(px)) * 4];
            const Float below = static_cast<Float>(pixel[3]) / 255.0f * (1.0f - alpha);
            const Float sum = alpha + below;
            if (sum <= 0.0f)
                continue;
            for (int part = 0; part < 3; ++part)
                pixel[part] = static_cast<std::uint8_t>(
                    std::lround((source[part] * alpha + static_cast<Float>(pixel[part]) * below) / sum));
            pixel[3] = static_cast<std::uint8_t>(std::lround(sum * 255.0f));
        }
    }
}

}  // namespace

struct cTrueType::sLibrary {
    sLibrary() {
        if (FT_Init_FreeType(&library) != 0)
            throw String("FreeType can't be started.");
        if (FT_Stroker_New(library, &stroker) != 0) {
            FT_Done_FreeType(library);
            throw String("FreeType can't be started.");
        }
    }
    ~sLibrary() {
        FT_Stroker_Done(stroker);
        FT_Done_FreeType(library);
    }
    FT_Library library = nullptr;
    FT_Stroker stroker = nullptr;
};

/// One font file at one size.
struct cTrueType::sFace {
    sFace(FT_Library library, const String& name, std::vector<std::uint8_t> file, UInt size) : bytes(std::move(file)) {
        FT_Face opened = nullptr;
        if (FT_New_Memory_Face(library, bytes.data(), static_cast<FT_Long>(bytes.size()), 0, &opened) != 0)
            throw String("Font \"" + name + "\": this is no font that can be read.");
        face.reset(opened);
        if (!FT_IS_SCALABLE(opened) || FT_Set_Pixel_Sizes(opened, 0, size) != 0)
            throw String("Font \"" + name + "\": it can't be scaled.");
        font.reset(hb_ft_font_create_referenced(opened));
        hb_ft_font_set_load_flags(font.get(), load_flags);
    }

    struct sFaceEnd {
        void operator()(FT_Face ended) const { FT_Done_Face(ended); }
    };
    struct sFontEnd {
        void operator()(hb_font_t* ended) const { hb_font_destroy(ended); }
    };
    std::vector<std::uint8_t> bytes;  ///< the face reads them as long as it lives
    std::unique_ptr<std::remove_pointer_t<FT_Face>, sFaceEnd> face;
    std::unique_ptr<hb_font_t, sFontEnd> font;
};

/// A shaped glyph, in the order from left to right.
struct cTrueType::sGlyph {
    std::size_t face = 0;
    UInt index = 0;
    Float advance = 0.0f;
    Vector2 offset{0.0f};  ///< from the pen, y up
};

cTrueType::cTrueType(const iXML& description) : m_library(std::make_unique<sLibrary>()) {
    ENGINE_MARK;
    String files;
    UInt size = 20;
    readKey(description, u"Files", files);
    readKey(description, u"Size", size);
    readKey(description, u"Outline", m_outline);
    readKey(description, u"OutlineColor", m_outline_color);
    m_outline = std::min(std::max(m_outline, 0.0f), largest_outline);
    for (std::size_t begin = 0; begin < files.size();) {
        const std::size_t end = std::min(files.find(';', begin), files.size());
        const String name(files.substr(begin, end - begin));
        m_faces.emplace_back(m_library->library, name, readWholeFile(name, "Font"),
                             std::clamp(size, smallest_size, largest_size));
        begin = end + 1;
    }
    if (m_faces.empty())
        throw String("Font description: no \"Files\".");
}

cTrueType::cTrueType(const String& name, std::vector<std::uint8_t> bytes, UInt size, Float outline)
    : m_library(std::make_unique<sLibrary>()), m_outline(std::clamp(outline, 0.0f, largest_outline)) {
    ENGINE_MARK;
    m_faces.emplace_back(m_library->library, name, std::move(bytes), std::clamp(size, smallest_size, largest_size));
}

cTrueType::~cTrueType() = default;

Bool cTrueType::hasChar(char16_t character) const {
    return std::any_of(m_faces.begin(), m_faces.end(),
                       [&](const sFace& face) { return FT_Get_Char_Index(face.face.get(), character) != 0; });
}

/// The first face that has the character; the first of all for one that none has.
std::size_t cTrueType::findFace(char32_t character) const {
    for (std::size_t i = 0; i < m_faces.size(); ++i) {
        if (FT_Get_Char_Index(m_faces[i].face.get(), character) != 0)
            return i;
    }
    return 0;
}

/// All glyphs of the line, from left to right.
std::vector<cTrueType::sGlyph> cTrueType::shape(std::u16string_view text) {
    const std::u32string points = toCodePoints(text);
    std::vector<sGlyph> line;
    if (points.empty())
        return line;
    for (const sRun& run : findRuns(points)) {
        std::vector<sGlyph> glyphs;
        shapeRun(points, run.begin, run.end, run.level % 2 != 0, glyphs);
        line.insert(line.end(), glyphs.begin(), glyphs.end());
    }
    return line;
}

/// A run of one direction: pieces of one face each.
void cTrueType::shapeRun(const std::u32string& text, std::size_t begin, std::size_t end, Bool right_to_left,
                         std::vector<sGlyph>& glyphs) {
    while (begin < end) {
        const std::size_t face = findFace(text[begin]);
        std::size_t piece_end = begin + 1;
        while (piece_end < end && (findFace(text[piece_end]) == face || text[piece_end] == U' '))
            ++piece_end;
        const std::unique_ptr<hb_buffer_t, decltype(&hb_buffer_destroy)> buffer(hb_buffer_create(), hb_buffer_destroy);
        hb_buffer_add_utf32(buffer.get(), reinterpret_cast<const std::uint32_t*>(text.data() + begin),
                            static_cast<int>(piece_end - begin), 0, -1);
        hb_buffer_set_direction(buffer.get(), right_to_left ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
        hb_buffer_guess_segment_properties(buffer.get());
        hb_shape(m_faces[face].font.get(), buffer.get(), nullptr, 0);
        unsigned count = 0;
        const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer.get(), &count);
        const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(buffer.get(), &count);
        std::vector<sGlyph> piece;
        for (unsigned i = 0; i < count; ++i)
            piece.push_back({face, infos[i].codepoint, static_cast<Float>(places[i].x_advance) * unit,
                             Vector2(places[i].x_offset, places[i].y_offset) * unit});
        glyphs.insert(right_to_left ? glyphs.begin() : glyphs.end(), piece.begin(), piece.end());
        begin = piece_end;
    }
}

Float cTrueType::getWidth(const std::vector<sGlyph>& glyphs) {
    return std::accumulate(glyphs.begin(), glyphs.end(), 0.0f,
                           [](Float width, const sGlyph& glyph) { return width + glyph.advance; });
}

Float cTrueType::measure(std::u16string_view text) {
    return getWidth(shape(text));
}

UInt cTrueType::getMargin() const {
    return static_cast<UInt>(std::ceil(m_outline)) + 2;
}

UInt cTrueType::getLineHeight() const {
    const FT_Size_Metrics& metrics = m_faces.front().face->size->metrics;
    const FT_Pos height = (metrics.ascender - metrics.descender) >> 6;
    return static_cast<UInt>(std::clamp<FT_Pos>(height, 1, largest_line)) + 2 * getMargin();
}

sImage cTrueType::makeSheet(Float width) const {
    sImage image;
    if (!(width > 0.0f))
        return image;
    const auto side = static_cast<Float>(max_image_side);
    image.width = static_cast<UInt>(std::min(std::ceil(width) + 2.0f * static_cast<Float>(getMargin()), side));
    image.height = getLineHeight();
    return image;
}

sImage cTrueType::draw(std::u16string_view text) {
    ENGINE_MARK;
    const std::vector<sGlyph> glyphs = shape(text);
    sImage image = makeSheet(getWidth(glyphs));
    image.pixels.assign(std::size_t{image.width} * image.height * 4, 0);
    if (m_outline > 0.0f)
        drawGlyphs(glyphs, true, image);
    drawGlyphs(glyphs, false, image);
    return image;
}

/// One layer of the picture: the outlines, or the letters upon them.
void cTrueType::drawGlyphs(const std::vector<sGlyph>& glyphs, Bool is_outline, sImage& image) {
    const Int base =
        static_cast<Int>(getMargin()) + static_cast<Int>(m_faces.front().face->size->metrics.ascender >> 6);
    FT_Stroker_Set(m_library->stroker, std::lround(m_outline * 64.0f), FT_STROKER_LINECAP_ROUND,
                   FT_STROKER_LINEJOIN_ROUND, 0);
    Float pen = static_cast<Float>(getMargin());
    for (const sGlyph& shaped : glyphs) {
        const Float x = pen + shaped.offset.x;
        pen += shaped.advance;
        const FT_Face face = m_faces[shaped.face].face.get();
        FT_Glyph raw = nullptr;
        if (!(std::abs(x) < 2.0f * static_cast<Float>(max_image_side)) ||
            FT_Load_Glyph(face, shaped.index, load_flags) != 0 || FT_Get_Glyph(face->glyph, &raw) != 0)
            continue;
        if (is_outline)
            FT_Glyph_Stroke(&raw, m_library->stroker, 1);
        FT_Vector fraction{std::lround((x - std::floor(x)) * 64.0f), 0};
        if (isOfReason(raw) && FT_Glyph_To_Bitmap(&raw, FT_RENDER_MODE_NORMAL, &fraction, 1) == 0) {
            const auto* bitmap = reinterpret_cast<FT_BitmapGlyph>(raw);
            blend(image, bitmap->bitmap, static_cast<Int>(std::floor(x)) + bitmap->left,
                  base - bitmap->top - static_cast<Int>(std::lround(shaped.offset.y)),
                  is_outline ? m_outline_color : DXColor{1, 1, 1, 1});
        }
        FT_Done_Glyph(raw);
    }
}

}  // namespace Engine
