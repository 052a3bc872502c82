#include "Engine/core/XMLBinary.h"

#include <cstring>
#include <memory>
#include <vector>

#include "Engine/core/CallStack.h"
#include "Engine/core/FileText.h"

namespace Engine {

namespace {

// The fewest bytes that each can take: two empty strings; a name, two counts and a text, all empty.
constexpr std::size_t smallest_attribute = 8;
constexpr std::size_t smallest_tag = 16;

class cBinaryReader {
public:
    cBinaryReader(const char* data, std::size_t size, cXMLBuilder& builder)
        : m_start(data), m_pos(data), m_end(data + size), m_builder(builder) {}

    void readDocument();

private:
    struct sString {
        const char* data;
        std::size_t size;  ///< characters
    };

    [[noreturn]] void fail(const char* what) const;
    UInt readNumber();
    UInt readCount(std::size_t smallest_item);
    sString readString(std::size_t character_size);
    const sXMLName* readWideName();
    UInt openTag(const sXMLName* name);
    void closeTag();

    const char* m_start;
    const char* m_pos;
    const char* m_end;
    cXMLBuilder& m_builder;
    std::u16string m_name;     ///< a wide name, in aligned memory
    std::vector<UInt> m_left;  ///< per open tag: child tags still to come
};

void cBinaryReader::fail(const char* what) const {
    throw String("damaged binary document, byte " + std::to_string(m_pos - m_start) + ": " + what);
}

UInt cBinaryReader::readNumber() {
    if (m_end - m_pos < 4)
        fail("unexpected end");
    UInt number = 0;
    std::memcpy(&number, m_pos, 4);
    m_pos += 4;
    return number;
}

UInt cBinaryReader::readCount(std::size_t smallest_item) {
    const UInt count = readNumber();
    if (count > static_cast<std::size_t>(m_end - m_pos) / smallest_item)
        fail("a count or length is beyond the end");
    return count;
}

cBinaryReader::sString cBinaryReader::readString(std::size_t character_size) {
    const std::size_t size = readCount(character_size);
    const char* data = m_pos;
    m_pos += size * character_size;
    return {data, size};
}

const sXMLName* cBinaryReader::readWideName() {
    const sString name = readString(sizeof(char16_t));
    m_name.resize(name.size);
    std::memcpy(m_name.data(), name.data, name.size * sizeof(char16_t));
    return m_builder.intern(std::u16string_view(m_name));
}

/// Reads up to the tag's first child; gives the number of children.
UInt cBinaryReader::openTag(const sXMLName* name) {
    m_builder.openTag(name);
    for (UInt i = readCount(smallest_attribute); i > 0; --i) {
        const sXMLName* attribute = readWideName();
        const sString value = readString(sizeof(char16_t));
        m_builder.addAttribute(attribute, value.data, value.size);
    }
    m_builder.endAttributes();
    return readCount(smallest_tag);
}

void cBinaryReader::closeTag() {
    const sString text = readString(sizeof(char16_t));
    m_builder.addText(text.data, text.size);
    m_builder.closeTag();
}

void cBinaryReader::readDocument() {
    try {
        ++m_pos;  // the mark
        m_left.push_back(openTag(m_builder.intern(std::u16string_view())));
        while (!m_left.empty()) {
            if (m_left.back() == 0) {
                closeTag();
                m_left.pop_back();
                continue;
            }
            --m_left.back();
            const sString name = readString(1);
            m_left.push_back(openTag(m_builder.intern(std::string_view(name.data, name.size))));
        }
    } catch (const char* text) {
        fail(text);
    }
    if (m_pos != m_end)
        fail("bytes behind the end of the document");
}

void writeCount(iFile& file, UInt count) {
    writeStringAsRaw(&file, reinterpret_cast<const char*>(&count), sizeof(count));
}

}  // namespace

void readXMLBinary(iFile& file, ULong size, cXMLBuilder& builder) {
    ENGINE_MARK;
    // Not initialised: a file that lies about its size costs no more than what it really has.
    const auto bytes = std::make_unique_for_overwrite<char[]>(size);
    readStringAsRaw(&file, bytes.get(), size);
    cBinaryReader(bytes.get(), size, builder).readDocument();
}

// Recursion is bounded: no reader makes a tree deeper than cXMLBuilder::deepest.
void writeXMLBinary(iFile& file, const cXMLTag& tag) {
    writeCount(file, tag.getAttributeCount());
    for (UInt i = 0; i < tag.getAttributeCount(); ++i) {
        const sXMLAttribute attribute = tag.getAttribute(i);
        writeWStringAsPascal(&file, attribute.name);
        writeWStringAsPascal(&file, attribute.value);
    }
    writeCount(file, tag.getTagCount());
    for (UInt i = 0; i < tag.getTagCount(); ++i) {
        const cXMLTag& child = tag.getTag(i);
        writeStringAsPascal(&file, child.getTagName()->narrow);
        writeXMLBinary(file, child);
    }
    writeWStringAsPascal(&file, tag.viewText());
}

}  // namespace Engine
