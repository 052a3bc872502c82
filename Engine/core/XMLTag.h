#pragma once

#include <string_view>
#include <utility>

#include "Engine/core/iXML.h"

namespace Engine {

class cXMLTag;

/// A tag or attribute name of a document, stored once. Two names of one document are equal if they are one object.
struct sXMLName {
    std::u16string_view wide;
    std::string_view narrow;
};

/// One attribute as a document keeps it. The values of a tag's attributes lie behind the row of its attributes.
struct sXMLStoredAttribute {
    const sXMLName* name;
    UInt offset;  ///< bytes from the start of the row to the value's first unit
    UInt size;    ///< units
};

/// What a tag is made of. All that is pointed to lies in the document's arena and lives as long as the document.
struct sXMLNode {
    const sXMLName* name = nullptr;
    const char16_t* text = nullptr;
    const sXMLStoredAttribute* attributes = nullptr;  ///< sorted by name, each name once
    cXMLTag* tags = nullptr;                          ///< sorted by narrow name, then document order
    UInt text_size = 0;                               ///< units
    UInt attribute_count = 0;
    UInt tag_count = 0;
};

/// A tag over the memory of its document (cXML), which is the root tag.
///
/// Child tags are never destroyed one by one, the memory of all goes with the document; so they own nothing.
class cXMLTag : public iXML {
public:
    explicit cXMLTag(const sXMLNode& node) { setNode(node); }
    /// A root tag, which is a resource of this name.
    explicit cXMLTag(String name) : iXML(std::move(name)) { setNode({}); }

    Bool isValid() const override { return true; }

    UInt get(const String& name, const ATTRIBUTE_MAP& attr, TAG_LIST& res) const override;
    UInt get(const String& name, TAG_LIST& res) const override;
    Bool get(const String& name, iXML*& res) const override;
    Bool get(UInt index, iXML*& res, String* name = nullptr) const override;

    Bool getNode(const String& name, Bool& res) const override;
    Bool getNode(const String& name, DXColor& res) const override;
    Bool getNode(const String& name, Vector2& res) const override;
    Bool getNode(const String& name, LongLong& res) const override;
    Bool getNode(const String& name, Double& res) const override;
    Bool getNode(const String& name, Float& res) const override;
    Bool getNode(const String& name, ULong& res) const override;
    Bool getNode(const String& name, Long& res) const override;
    Bool getNode(const String& name, WString& res) const override;
    Bool getNode(const String& name, String& res) const override;

    String getText() const override;
    WString getWText() const override;

    Bool getValue(Float& res) const override;
    Bool getValue(Double& res) const override;
    Bool getValue(Long& res) const override;
    Bool getValue(ULong& res) const override;
    Bool getValue(LongLong& res) const override;
    Bool getValue(Vector2& res) const override;
    Bool getValue(DXColor& res) const override;
    Bool getValue(Bool& res) const override;

    sXMLAttribute getAttribute(UInt i) const override;
    WString operator[](const char16_t* name) const override;
    WString operator[](const WString& name) const override;
    UInt getAttributeCount() const override { return m_attribute_count; }

    UInt getNodeCount(const String& name) const override;
    ATTRIBUTE_MAP getAttributes() const override;
    UInt getTagCount() const override { return m_tag_count; }

    /// The text without a copy.
    std::u16string_view viewText() const { return {m_text, m_text_size}; }
    /// The child at a place below getTagCount().
    const cXMLTag& getTag(UInt index) const { return m_tags[index]; }
    /// Null for the root, whose name is not kept.
    const sXMLName* getTagName() const { return m_tag_name; }

protected:
    void setNode(const sXMLNode& node);

private:
    struct sRange {
        UInt first;
        UInt last;  ///< one behind
    };

    sRange findTags(const String& name) const;
    std::u16string_view findAttribute(std::u16string_view name) const;
    Bool hasAttributes(const ATTRIBUTE_MAP& attr) const;
    template <class T>
    Bool convertNode(const String& name, T& res) const;

    // In this order a tag is one cache line: the first fills the gap that the base leaves.
    UInt m_text_size;
    const char16_t* m_text;
    const sXMLStoredAttribute* m_attributes;
    cXMLTag* m_tags;
    const sXMLName* m_tag_name;
    UInt m_attribute_count;
    UInt m_tag_count;
};

}  // namespace Engine
