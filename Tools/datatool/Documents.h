#pragma once

#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"

namespace Datatool {

/// A document that the game knows by this name, held as long as this lives.
class cDocument {
public:
    /// Throws what reading it throws.
    explicit cDocument(const Engine::String& path)
        : m_xml(Engine::cResourceManager::getInstance()->getXML(path)), m_holder(Engine::cResourceRef::adopt(m_xml)) {}

    Engine::iXML& get() const { return *m_xml; }

private:
    Engine::iXML* m_xml;
    Engine::cResourceRef m_holder;
};

/// Each child of the tag's child "list", with its number; none where there is no such child.
template <class VISIT>
void forEachChild(const Engine::iXML& tag, const char* list, const VISIT& visit) {
    Engine::iXML* tags = nullptr;
    if (!tag.get(list, tags))
        return;
    for (Engine::UInt i = 0; i < tags->getTagCount(); ++i) {
        Engine::iXML* child = nullptr;
        tags->get(i, child);
        visit(i, *child);
    }
}

inline Engine::UInt countChildren(const Engine::iXML& tag, const char* list) {
    Engine::iXML* tags = nullptr;
    return tag.get(list, tags) ? tags->getTagCount() : 0;
}

inline Engine::Int readInt(const Engine::iXML& tag, const char16_t* key, Engine::Int missing) {
    Engine::readKey(tag, key, missing);
    return missing;
}

}  // namespace Datatool
