#include "Game/Ui/GameStrings.h"

#include "Engine/core/CallStack.h"
#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"

using namespace Engine;

cGameStrings::cGameStrings() {
    ENGINE_MARK;
    load("GameStrings.xml");
    load("YesNoStrings.xml");
}

void cGameStrings::load(const String& path) {
    ENGINE_MARK;
    iXML* document = cResourceManager::getInstance()->getXML(path);
    const cResourceRef holder = cResourceRef::adopt(document);
    iXML* strings = nullptr;
    if (!document->get("Strings", strings))
        return;
    for (UInt i = 0; i < strings->getTagCount(); ++i) {
        iXML* tag = nullptr;
        strings->get(i, tag);
        m_strings[toNarrow((*tag)[u"id"])] = (*tag)[u"value"];
    }
}

const WString& cGameStrings::getString(const String& id) const {
    static const WString none;
    const auto known = m_strings.find(id);
    return known == m_strings.end() ? none : known->second;
}
