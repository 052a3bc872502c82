#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "Engine/core/Resource.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

class iXML;

/// Attributes wanted of a tag, by name.
using ATTRIBUTE_MAP = std::map<WString, WString>;
/// Tags found in a document; they belong to the document.
using TAG_LIST = std::vector<iXML*>;

/// One attribute of a tag. Both views live as long as the document.
struct sXMLAttribute {
    std::u16string_view name;
    std::u16string_view value;
};

/// One element of a document: its attributes sorted by name, its children sorted by tag name (children of one name
/// in the order of the document), and its character data with all white space kept.
///
/// A tag is read-only and dies with its document's root. Values stay text and are converted at each read by the
/// rules of TextConvert.h: a text that is empty or doesn't parse leaves the target as it is.
class iXML : public iResource {
public:
    using iResource::iResource;

    eResourceType getType() const override { return eResourceType::xml; }

    virtual Bool isValid() const = 0;

    /// Appends the children called name that have every attribute of attr with an equal value; gives their number.
    virtual UInt get(const String& name, const ATTRIBUTE_MAP& attr, TAG_LIST& res) const = 0;
    /// Appends all children called name, in order; gives their number.
    virtual UInt get(const String& name, TAG_LIST& res) const = 0;
    /// The first child of that name; false, and res untouched, if there is none.
    virtual Bool get(const String& name, iXML*& res) const = 0;
    /// The child at this place among all children in their sorted order, optionally with its tag name.
    virtual Bool get(UInt index, iXML*& res, String* name = nullptr) const = 0;

    /// Converts the text of the first child called name. False, and res untouched, if there is no such child.
    virtual Bool getNode(const String& name, Bool& res) const = 0;
    virtual Bool getNode(const String& name, DXColor& res) const = 0;
    virtual Bool getNode(const String& name, Vector2& res) const = 0;
    virtual Bool getNode(const String& name, LongLong& res) const = 0;
    virtual Bool getNode(const String& name, Double& res) const = 0;
    virtual Bool getNode(const String& name, Float& res) const = 0;
    virtual Bool getNode(const String& name, ULong& res) const = 0;
    virtual Bool getNode(const String& name, Long& res) const = 0;
    virtual Bool getNode(const String& name, WString& res) const = 0;
    virtual Bool getNode(const String& name, String& res) const = 0;

    virtual String getText() const = 0;    ///< the tag's text, narrowed
    virtual WString getWText() const = 0;  ///< the tag's text

    /// The tag's own text converted; a text that doesn't parse leaves res as it is and gives false.
    virtual Bool getValue(Float& res) const = 0;
    virtual Bool getValue(Double& res) const = 0;
    virtual Bool getValue(Long& res) const = 0;
    virtual Bool getValue(ULong& res) const = 0;
    virtual Bool getValue(LongLong& res) const = 0;
    virtual Bool getValue(Vector2& res) const = 0;
    virtual Bool getValue(DXColor& res) const = 0;
    virtual Bool getValue(Bool& res) const = 0;

    /// The attribute at place i in name order; i must be below getAttributeCount().
    virtual sXMLAttribute getAttribute(UInt i) const = 0;
    /// The value of the attribute; an empty string if there is none.
    virtual WString operator[](const char16_t* name) const = 0;
    virtual WString operator[](const WString& name) const = 0;
    virtual UInt getAttributeCount() const = 0;

    virtual UInt getNodeCount(const String& name) const = 0;  ///< children of that name
    virtual ATTRIBUTE_MAP getAttributes() const = 0;          ///< a copy of all attributes
    virtual UInt getTagCount() const = 0;                     ///< children of any name
};

}  // namespace Engine
