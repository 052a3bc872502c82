#include "Engine/core/Keys.h"

#include "Engine/core/iXML.h"

namespace Engine {

namespace {

/// Attributes are sorted by name.
Bool findAttribute(const iXML& xml, std::u16string_view name, WString& text) {
    UInt first = 0;
    UInt last = xml.getAttributeCount();
    while (first < last) {
        const UInt middle = first + (last - first) / 2;
        const sXMLAttribute attribute = xml.getAttribute(middle);
        if (attribute.name == name) {
            text.assign(attribute.value);
            return true;
        }
        if (attribute.name < name)
            first = middle + 1;
        else
            last = middle;
    }
    return false;
}

}  // namespace

Bool findKey(const iXML& xml, const char16_t* name, WString& text) {
    if (findAttribute(xml, name, text))
        return true;
    iXML* child = nullptr;
    if (!xml.get(toNarrow(name), child))
        return false;
    text = child->getWText();
    return true;
}

}  // namespace Engine
