#include "Engine/core/XMLBuilder.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace Engine {

namespace {

constexpr std::size_t most_bytes = std::size_t{1} << 31;

/// The same for the wide and the narrow form of an ASCII name, and all names of our data are. That others share a place
/// costs time alone.
template <class CHAR>
std::size_t hashName(std::basic_string_view<CHAR> name) {
    std::size_t hash = name.size();
    for (const CHAR unit : name)
        hash = hash * 31 + static_cast<std::size_t>(unit);
    return (hash ^ hash >> 8) & 0xFF;
}

/// Stops at the first difference; the text ends with a zero, which no name holds.
Bool isEqual(std::u16string_view name, const char16_t* text) {
    std::size_t i = 0;
    while (i < name.size() && text[i] == name[i])
        ++i;
    return i == name.size() && text[i] == 0;
}

template <class T>
T* copyToArena(cXMLArena& arena, const T* data, std::size_t count) {
    T* copy = arena.allocateArray<T>(count);
    if (count > 0)
        std::memcpy(copy, data, count * sizeof(T));
    return copy;
}

Bool isBefore(const sXMLNode& a, const sXMLNode& b) {
    return a.name != b.name && a.name->narrow < b.name->narrow;
}

}  // namespace

const sXMLName* cXMLBuilder::intern(std::u16string_view name) {
    const sXMLName*& recent = m_recent_names[hashName(name)];
    if (!recent || recent->wide != name)
        recent = addName(name);
    return recent;
}

const sXMLName* cXMLBuilder::intern(std::string_view name) {
    const sXMLName*& recent = m_recent_names[hashName(name)];
    if (!recent || recent->narrow != name)
        recent = addName(toWide(name));
    return recent;
}

const sXMLName* cXMLBuilder::intern(const char16_t* name) {
    const std::size_t units = name[0] == 0 ? 0u : name[0] * 31u + name[1];
    const sXMLName*& likely = m_likely_names[units & 0xFF];
    if (!likely || !isEqual(likely->wide, name))
        likely = intern(std::u16string_view(name));
    return likely;
}

const sXMLName* cXMLBuilder::addName(std::u16string_view wide) {
    const auto found = m_names.find(wide);
    if (found != m_names.end())
        return found->second;
    const String narrow = toNarrow(wide);
    const sXMLName name{{copyToArena(m_arena, wide.data(), wide.size()), wide.size()},
                        {copyToArena(m_arena, narrow.data(), narrow.size()), narrow.size()}};
    const sXMLName* stored = copyToArena(m_arena, &name, 1);
    m_names.emplace(stored->wide, stored);
    return stored;
}

void cXMLBuilder::openTag(const sXMLName* name) {
    if (m_open.size() == deepest)
        throw String("tags are nested deeper than " + std::to_string(deepest) + " levels");
    sOpenTag tag{{}, m_nodes.size(), m_text.size()};
    tag.node.name = name;
    m_open.push_back(tag);
    m_attributes.clear();
}

void cXMLBuilder::addAttribute(const sXMLName* name, const void* value, std::size_t size) {
    m_attributes.push_back({name, value, size});
}

/// By name; of equal names the one added last stays.
void cXMLBuilder::sortAttributes() {
    const auto before = [](const sNewAttribute& a, const sNewAttribute& b) { return a.name->wide < b.name->wide; };
    if (m_attributes.size() > 16) {
        std::stable_sort(m_attributes.begin(), m_attributes.end(), before);
    } else {
        for (std::size_t i = 1; i < m_attributes.size(); ++i) {
            for (std::size_t j = i; j > 0 && before(m_attributes[j], m_attributes[j - 1]); --j)
                std::swap(m_attributes[j], m_attributes[j - 1]);
        }
    }
    std::size_t count = 0;
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        const Bool is_last = i + 1 == m_attributes.size() || m_attributes[i].name != m_attributes[i + 1].name;
        if (is_last)
            m_attributes[count++] = m_attributes[i];
    }
    m_attributes.resize(count);
}

void cXMLBuilder::endAttributes() {
    if (m_attributes.empty())
        return;
    sortAttributes();
    std::size_t bytes = m_attributes.size() * sizeof(sXMLStoredAttribute);
    for (const sNewAttribute& attribute : m_attributes)
        bytes += attribute.size * sizeof(char16_t);
    if (bytes > most_bytes)
        throw "attributes are too long";

    auto* row = static_cast<std::byte*>(m_arena.allocate(bytes));
    std::size_t offset = m_attributes.size() * sizeof(sXMLStoredAttribute);
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        const sNewAttribute& attribute = m_attributes[i];
        new (row + i * sizeof(sXMLStoredAttribute))
            sXMLStoredAttribute{attribute.name, static_cast<UInt>(offset), static_cast<UInt>(attribute.size)};
        if (attribute.size > 0)
            std::memcpy(row + offset, attribute.value, attribute.size * sizeof(char16_t));
        offset += attribute.size * sizeof(char16_t);
    }
    sXMLNode& node = m_open.back().node;
    node.attributes = reinterpret_cast<const sXMLStoredAttribute*>(row);
    node.attribute_count = static_cast<UInt>(m_attributes.size());
}

void cXMLBuilder::addText(const void* text, std::size_t size) {
    const std::size_t bytes = size * sizeof(char16_t);
    if (bytes > most_bytes - m_text.size())
        throw "text is too long";
    m_text.append(static_cast<const char*>(text), bytes);
}

/// Most texts are the line breaks and blanks between child tags: equal ones in succession are stored once.
void cXMLBuilder::storeText(sXMLNode& node, const char* bytes, std::size_t count) {
    const std::size_t size = count / sizeof(char16_t);
    std::u16string_view* last = size < m_short_texts.size() ? &m_short_texts[size] : nullptr;
    node.text_size = static_cast<UInt>(size);
    if (last && last->data() && std::memcmp(last->data(), bytes, count) == 0) {
        node.text = last->data();
        return;
    }
    void* text = m_arena.allocate(count);
    std::memcpy(text, bytes, count);
    node.text = static_cast<const char16_t*>(text);
    if (last)
        *last = {node.text, size};
}

void cXMLBuilder::closeTag() {
    const sOpenTag& tag = m_open.back();
    sXMLNode node = tag.node;
    if (m_text.size() > tag.text_start) {
        storeText(node, m_text.data() + tag.text_start, m_text.size() - tag.text_start);
        m_text.resize(tag.text_start);
    }
    if (m_nodes.size() > tag.first_child) {
        node.tag_count = static_cast<UInt>(m_nodes.size() - tag.first_child);
        node.tags = layOutChildren(tag.first_child);
        m_nodes.resize(tag.first_child);
    }
    m_nodes.push_back(node);
    m_open.pop_back();
}

/// Moves the closed tags from this one on into the arena, sorted; mostly they are so already.
cXMLTag* cXMLBuilder::layOutChildren(std::size_t first) {
    const auto begin = m_nodes.begin() + static_cast<std::ptrdiff_t>(first);
    if (!std::is_sorted(begin, m_nodes.end(), isBefore))
        std::stable_sort(begin, m_nodes.end(), isBefore);
    cXMLTag* tags = m_arena.allocateArray<cXMLTag>(m_nodes.size() - first);
    cXMLTag* place = tags;
    for (auto node = begin; node != m_nodes.end(); ++node)
        new (place++) cXMLTag(*node);
    return tags;
}

}  // namespace Engine
