#include "Engine/Ui/State.h"

#include <algorithm>

#include "Engine/core/CallStack.h"
#include "Engine/core/Keys.h"
#include "Engine/core/ResourceManager.h"

namespace Engine {

namespace {

using GETTER = iResource* (cResourceManager::*)(const String&);

/// Reads the name of a resource and loads it. False if the key is absent; an empty name gives an empty reference.
Bool readResource(const iXML& xml, const char16_t* key, GETTER getter, cResourceRef& res) {
    String name;
    if (!readKey(xml, key, name))
        return false;
    res = name.empty() ? cResourceRef() : cResourceRef::adopt((cResourceManager::getInstance()->*getter)(name));
    return true;
}

}  // namespace

void cState::loadXML(const iXML* xml) {
    ENGINE_MARK;
    readResource(*xml, u"Picture", &cResourceManager::getTexture, m_texture);
    cResourceRef loaded;
    if (readResource(*xml, u"Mesh", &cResourceManager::getMesh, loaded))
        setMesh(loaded.get());
    if (readResource(*xml, u"Animation", &cResourceManager::getAnimation, loaded))
        setAnimation(loaded.get());

    Float length = m_anim_length;
    readKey(*xml, u"anim_length", length);
    if (length > 0.0f)
        m_anim_length = length;
    readKey(*xml, u"PlayAnimation", m_play_animation);
    readKey(*xml, u"frames_count", m_frames_count);
    readKey(*xml, u"anim_loop", m_anim_loop);
    readKey(*xml, u"anim_columns", m_anim_columns);
    readKey(*xml, u"anim_rows", m_anim_rows);
    m_anim_columns = std::max(m_anim_columns, 1u);
    m_anim_rows = std::max(m_anim_rows, 1u);
    const ULongLong cells = ULongLong{m_anim_columns} * m_anim_rows;
    m_frames_count = static_cast<UInt>(std::clamp<ULongLong>(m_frames_count, 1, cells));
}

void cState::setMesh(iResource* mesh) {
    m_mesh = cResourceRef(mesh);
}

void cState::setAnimation(iResource* animation) {
    m_animation = cResourceRef(animation);
}

}  // namespace Engine
