#pragma once

#include "Engine/core/ResourceManager.h"
#include "Engine/core/ResourceRef.h"
#include "Engine/core/iXML.h"

namespace Engine {

/// Sets a view up from a file: the one place where a screen's document is fetched and given back.
template <class T>
void loadView(T& view, const String& path) {
    iXML* xml = cResourceManager::getInstance()->getXML(path);
    const cResourceRef holder = cResourceRef::adopt(xml);
    view.loadXML(xml);
}

/// Sets a view up from the first child tag of this name; a missing tag leaves it as it was built.
template <class T>
void loadChild(T& view, const iXML* xml, const String& name) {
    iXML* tag = nullptr;
    if (xml->get(name, tag))
        view.loadXML(tag);
}

}  // namespace Engine
