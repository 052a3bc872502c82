#include "Engine/core/Resource.h"

#include "Engine/core/ResourceManager.h"

namespace Engine {

iResource::~iResource() {
    if (cResourceManager* resources = cResourceManager::getInstance())
        resources->releaseResource(this);
}

const String& iResource::getName() const {
    static const String no_name;
    return m_name ? *m_name : no_name;
}

}  // namespace Engine
