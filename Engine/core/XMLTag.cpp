#include "Engine/core/XMLTag.h"

#include <algorithm>

#include "Engine/core/TextConvert.h"

namespace Engine {

static_assert(sizeof(cXMLTag) == 64, "a document has as many tags as the whole game has objects");

void cXMLTag::setNode(const sXMLNode& node) {
    m_text_size = node.text_size;
    m_text = node.text;
    m_attributes = node.attributes;
    m_tags = node.tags;
    m_tag_name = node.name;
    m_attribute_count = node.attribute_count;
    m_tag_count = node.tag_count;
}

/// The children called so lie in one row.
cXMLTag::sRange cXMLTag::findTags(const String& name) const {
    const std::string_view wanted = name;
    const cXMLTag* end = m_tags + m_tag_count;
    const cXMLTag* first = std::partition_point(m_tags, m_tags + m_tag_count,
                                                [&](const cXMLTag& tag) { return tag.m_tag_name->narrow < wanted; });
    if (first == end || first->m_tag_name->narrow != wanted)
        return {0, 0};
    const cXMLTag* last =
        std::partition_point(first, end, [&](const cXMLTag& tag) { return tag.m_tag_name->narrow == wanted; });
    return {static_cast<UInt>(first - m_tags), static_cast<UInt>(last - m_tags)};
}

UInt cXMLTag::get(const String& name, const ATTRIBUTE_MAP& attr, TAG_LIST& res) const {
    const sRange range = findTags(name);
    const std::size_t size = res.size();
    for (UInt i = range.first; i < range.last; ++i) {
        if (m_tags[i].hasAttributes(attr))
            res.push_back(&m_tags[i]);
    }
    return static_cast<UInt>(res.size() - size);
}

UInt cXMLTag::get(const String& name, TAG_LIST& res) const {
    return get(name, {}, res);
}

Bool cXMLTag::get(const String& name, iXML*& res) const {
    const sRange range = findTags(name);
    if (range.first == range.last)
        return false;
    res = &m_tags[range.first];
    return true;
}

Bool cXMLTag::get(UInt index, iXML*& res, String* name) const {
    if (index >= m_tag_count)
        return false;
    res = &m_tags[index];
    if (name)
        name->assign(m_tags[index].m_tag_name->narrow);
    return true;
}

template <class T>
Bool cXMLTag::convertNode(const String& name, T& res) const {
    const sRange range = findTags(name);
    if (range.first == range.last)
        return false;
    parseText(m_tags[range.first].viewText(), res);
    return true;
}

Bool cXMLTag::getNode(const String& name, Bool& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, DXColor& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, Vector2& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, LongLong& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, Double& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, Float& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, ULong& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, Long& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, WString& res) const {
    return convertNode(name, res);
}

Bool cXMLTag::getNode(const String& name, String& res) const {
    return convertNode(name, res);
}

String cXMLTag::getText() const {
    String text;
    parseText(viewText(), text);
    return text;
}

WString cXMLTag::getWText() const {
    return WString(viewText());
}

Bool cXMLTag::getValue(Float& res) const {
    return parseText(viewText(), res);
}

Bool cXMLTag::getValue(Double& res) const {
    return parseText(viewText(), res);
}

Bool cXMLTag::getValue(Long& res) const {
    return parseText(viewText(), res);
}

Bool cXMLTag::getValue(ULong& res) const {
    return parseText(viewText(), res);
}

Bool cXMLTag::getValue(LongLong& res) const {
    return parseText(viewText(), res);
}

Bool cXMLTag::getValue(Vector2& res) const {
    return parseText(viewText(), res);
}

Bool cXMLTag::getValue(DXColor& res) const {
    return parseText(viewText(), res);
}

Bool cXMLTag::getValue(Bool& res) const {
    return parseText(viewText(), res);
}

sXMLAttribute cXMLTag::getAttribute(UInt i) const {
    const sXMLStoredAttribute& attribute = m_attributes[i];
    const std::byte* value = reinterpret_cast<const std::byte*>(m_attributes) + attribute.offset;
    return {attribute.name->wide, {reinterpret_cast<const char16_t*>(value), attribute.size}};
}

/// The value; a view without data if there is no such attribute.
std::u16string_view cXMLTag::findAttribute(std::u16string_view name) const {
    const sXMLStoredAttribute* end = m_attributes + m_attribute_count;
    const sXMLStoredAttribute* found = std::partition_point(
        m_attributes, end, [&](const sXMLStoredAttribute& attribute) { return attribute.name->wide < name; });
    if (found == end || found->name->wide != name)
        return {};
    return getAttribute(static_cast<UInt>(found - m_attributes)).value;
}

Bool cXMLTag::hasAttributes(const ATTRIBUTE_MAP& attr) const {
    return std::all_of(attr.begin(), attr.end(), [&](const auto& wanted) {
        const std::u16string_view value = findAttribute(wanted.first);
        return value.data() && value == wanted.second;
    });
}

WString cXMLTag::operator[](const char16_t* name) const {
    return WString(findAttribute(name));
}

WString cXMLTag::operator[](const WString& name) const {
    return WString(findAttribute(name));
}

UInt cXMLTag::getNodeCount(const String& name) const {
    const sRange range = findTags(name);
    return range.last - range.first;
}

ATTRIBUTE_MAP cXMLTag::getAttributes() const {
    ATTRIBUTE_MAP attributes;
    for (UInt i = 0; i < m_attribute_count; ++i) {
        const sXMLAttribute attribute = getAttribute(i);
        attributes.emplace_hint(attributes.end(), attribute.name, attribute.value);
    }
    return attributes;
}

}  // namespace Engine
