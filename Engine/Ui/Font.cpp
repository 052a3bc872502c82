#include "Engine/Ui/Font.h"

#include <cstring>

#include "Engine/core/CallStack.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/WholeFile.h"
#include "Engine/graphics/text/TrueType.h"

namespace Engine {

namespace {

constexpr UInt magic = 0x666F6E74;
constexpr std::size_t range_size = 6;
constexpr std::size_t glyph_size = 20;

/// Takes little-endian numbers off the front of the file's bytes.
class cFontReader {
public:
    explicit cFontReader(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

    template <class T>
    T read() {
        require(1, sizeof(T));
        T value;
        std::memcpy(&value, m_rest.data(), sizeof(T));  // every machine that we know is little-endian
        m_rest = m_rest.subspan(sizeof(T));
        return value;
    }
    /// Is there room for that many records?
    void require(std::size_t count, std::size_t size) const {
        if (count > m_rest.size() / size)
            throw "Unexpected end of source";
    }

private:
    std::span<const std::uint8_t> m_rest;
};

}  // namespace

cFont::cFont(const String& name) : iResource(name) {
    ENGINE_MARK;
    const std::vector<std::uint8_t> file = readWholeFile(name, "Font");
    read(file);
}

cFont::cFont(const String& name, std::span<const std::uint8_t> bytes) : iResource(name) {
    read(bytes);
}

cFont::~cFont() = default;

cTrueType& cFont::getTrueType() {
    ENGINE_MARK;
    if (!m_true_type) {
        const String& name = getName();
        const String path = String(name.substr(0, name.rfind('.')) + ".xml");
        iXML* description = cResourceManager::getInstance()->getXML(path);
        const cResourceRef holder = cResourceRef::adopt(description);
        m_true_type = std::make_unique<cTrueType>(*description);
    }
    return *m_true_type;
}

void cFont::read(std::span<const std::uint8_t> bytes) {
    const String place = "cFont::read(\"" + getName() + "\")";  // a cut file's failure names no file itself
    ENGINE_MARK_TEXT(place.c_str());
    cFontReader reader(bytes);
    if (bytes.size() < sizeof(magic) || reader.read<UInt>() != magic)
        throw String("Specified resourse (" + getName() + ") is not font.");
    const UInt range_count = reader.read<UInt>();
    reader.require(range_count, range_size);
    for (UInt i = 0; i < range_count; ++i) {
        const auto first = reader.read<std::uint16_t>();
        const auto last = reader.read<std::uint16_t>();
        m_ranges[static_cast<char16_t>(last)] = {static_cast<char16_t>(first), reader.read<std::uint16_t>()};
    }
    const UInt glyph_count = reader.read<UInt>();
    reader.require(glyph_count, glyph_size);
    m_glyphs.resize(glyph_count);
    for (sGlyph& glyph : m_glyphs) {
        for (Float* value : {&glyph.left, &glyph.top, &glyph.right, &glyph.bottom, &glyph.advance})
            *value = readFraction(reader.read<Float>());
    }
}

/// A place or a length outside the atlas is no glyph that anyone could have drawn.
Float cFont::readFraction(Float value) const {
    if (!(value >= -1.0f && value <= 2.0f))
        throw String("Font \"" + getName() + "\": a glyph lies outside the picture.");
    return value;
}

std::vector<std::pair<char16_t, char16_t>> cFont::getRanges() const {
    std::vector<std::pair<char16_t, char16_t>> res;
    for (const auto& [last, range] : m_ranges)
        res.emplace_back(range.first, last);
    return res;
}

const cFont::sGlyph* cFont::getGlyph(char16_t character) const {
    const auto range = m_ranges.lower_bound(character);
    if (range == m_ranges.end() || character < range->second.first)
        return nullptr;
    const std::size_t index = range->second.glyph + UInt{character} - range->second.first;
    return index < m_glyphs.size() ? &m_glyphs[index] : nullptr;
}

}  // namespace Engine
