#include "Engine/core/PropertyTable.h"

#include <algorithm>

#include "Engine/core/CallStack.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"

namespace Engine {

namespace {

Bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

Bool isTagName(const String& name) {
    const auto fits = [](char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':'; };
    return !name.empty() && isLetter(name[0]) && std::all_of(name.begin(), name.end(), fits);
}

}  // namespace

void cPropertyTable::load(const String& filename) {
    ENGINE_MARK;
    iXML* const document = cResourceManager::getInstance()->getXML(filename);
    const cResourceRef holder = cResourceRef::adopt(document);
    std::map<String, SECTION> sections;
    String name;
    iXML* tag = nullptr;
    for (UInt i = 0; document->get(i, tag, &name); ++i) {
        SECTION& section = sections[name];
        for (UInt j = 0; j < tag->getAttributeCount(); ++j) {
            const sXMLAttribute attribute = tag->getAttribute(j);
            section[toNarrow(attribute.name)].assign(attribute.value);
        }
    }
    m_sections = std::move(sections);
    m_filename = filename;
}

WString& cPropertyTable::enter(const String& section, const String& name) {
    ENGINE_MARK;
    for (const String* part : {&section, &name}) {
        if (!isTagName(*part))
            throw String("cPropertyTable::enter(): '" + *part + "' can't be the name of a section or a key");
    }
    return m_sections[section][name];
}

const WString* cPropertyTable::findOrEnter(const String& section, const String& name) {
    if (const auto found = m_sections.find(section); found != m_sections.end()) {
        if (const auto value = found->second.find(name); value != found->second.end())
            return &value->second;
    }
    enter(section, name);
    return nullptr;
}

}  // namespace Engine
