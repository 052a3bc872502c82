#include "Engine/core/ResourceManager.h"

#include <algorithm>
#include <utility>

#include "Engine/core/CallStack.h"
#include "Engine/core/FileManager.h"
#include "Engine/core/FileText.h"
#include "Engine/core/TextConvert.h"
#include "Engine/core/XML.h"

namespace Engine {

namespace {

constexpr std::pair<std::string_view, eResourceType> extensions[] = {
    {"dds", eResourceType::texture},    {"jng", eResourceType::texture}, {"png", eResourceType::texture},
    {"jpg", eResourceType::texture},    {"tga", eResourceType::texture}, {"bmp", eResourceType::texture},
    {"xml", eResourceType::xml},        {"fnt", eResourceType::font},    {"vsh", eResourceType::shader},
    {"ogg", eResourceType::sound},      {"wav", eResourceType::sound},   {"mesh", eResourceType::mesh},
    {"anim", eResourceType::animation},
};

Bool isUnused(const iResource& resource) {
    return !resource.isUsed();
}

/// The kind named in a resource log; none for what is no kind that can be loaded.
eResourceType readType(const iXML& tag) {
    UInt value = 0;
    if (!parseText(tag[u"Type"], value) || value > static_cast<UInt>(eResourceType::animation))
        return eResourceType::none;
    return static_cast<eResourceType>(value);
}

}  // namespace

eResourceType toResourceType(const String& path) {
    const String& ext = getFileExt(path);
    const auto found = std::find_if(std::begin(extensions), std::end(extensions),
                                    [&](const auto& entry) { return entry.first == ext; });
    return found == std::end(extensions) ? eResourceType::none : found->second;
}

cResourceManager::cResourceManager() {
    registerLoader(
        eResourceType::xml, [](const String& name) { return std::make_unique<cXML>(name); }, false);
}

cResourceManager::~cResourceManager() {
    deleteWhere([](const iResource&) { return true; });
}

void cResourceManager::registerLoader(eResourceType type, LOADER loader, Bool is_graphics) {
    m_kinds.at(static_cast<std::size_t>(type)) = {std::move(loader), is_graphics};
}

Bool cResourceManager::canLoad(eResourceType type) const {
    const auto kind = static_cast<std::size_t>(type);
    return kind < m_kinds.size() && m_kinds[kind].loader;
}

iResource* cResourceManager::getTexture(const String& path) {
    return getByType(path, eResourceType::texture);
}

iResource* cResourceManager::getFont(const String& path) {
    return getByType(path, eResourceType::font);
}

iResource* cResourceManager::getSound(const String& path) {
    return getByType(path, eResourceType::sound);
}

iResource* cResourceManager::getMesh(const String& path) {
    return getByType(path, eResourceType::mesh);
}

iResource* cResourceManager::getAnimation(const String& path) {
    return getByType(path, eResourceType::animation);
}

iXML* cResourceManager::getXML(const String& path) {
    return static_cast<iXML*>(getByType(path, eResourceType::xml));
}

iResource* cResourceManager::getShader(const String& path) {
    return getByType(path, eResourceType::shader);
}

iResource* cResourceManager::getByType(const String& path, eResourceType type) {
    ENGINE_MARK;
    const String name = toFileKey(path);
    const auto known = m_resources.find(name);
    if (known != m_resources.end()) {
        if (known->second->getType() != type)
            throw "Wrong resource type.";
        return known->second->addRef();
    }

    const sKind& kind = m_kinds.at(static_cast<std::size_t>(type));
    if (!kind.loader)
        throw String("cResourceManager: no loader for resources of kind " + std::to_string(static_cast<UInt>(type)) +
                     ". File: " + name);
    std::unique_ptr<iResource> made = kind.loader(name);
    iResource* const resource = made.get();
    m_resources[name] = std::move(made);
    m_names[resource] = name;
    if (kind.is_graphics)
        m_graphics_resources.push_back(resource);
    return resource->addRef();
}

/// Leaves all tables but stays alive with the caller; null for a resource that is not the manager's.
std::unique_ptr<iResource> cResourceManager::takeOut(iResource* resource) {
    std::unique_ptr<iResource> owner;
    const auto known = m_names.find(resource);
    if (known != m_names.end()) {
        const auto entry = m_resources.find(known->second);
        owner = std::move(entry->second);
        m_resources.erase(entry);
        m_names.erase(known);
        std::erase(m_graphics_resources, resource);
        return owner;
    }
    const auto forgotten = std::find_if(m_forgotten.begin(), m_forgotten.end(),
                                        [&](const auto& entry) { return entry.get() == resource; });
    if (forgotten != m_forgotten.end()) {
        owner = std::move(*forgotten);
        m_forgotten.erase(forgotten);
    }
    return owner;
}

void cResourceManager::releaseResource(const String& path) {
    const auto known = m_resources.find(toFileKey(path));
    if (known != m_resources.end())
        m_forgotten.push_back(takeOut(known->second.get()));
}

/// Called by the destructor of every resource, so nothing may be deleted here.
void cResourceManager::releaseResource(iResource* resource) {
    static_cast<void>(takeOut(resource).release());
}

std::vector<iResource*> cResourceManager::getOrdered() const {
    std::vector<iResource*> result;
    for (const auto& [name, resource] : m_resources)
        result.push_back(resource.get());
    return result;
}

/// Works on a list taken at the start, since a resource's destructor may release or delete others.
void cResourceManager::deleteWhere(const std::function<Bool(const iResource&)>& condition) {
    ENGINE_MARK;
    for (iResource* resource : getOrdered()) {
        if (m_names.contains(resource) && condition(*resource))
            takeOut(resource);
    }
    std::vector<iResource*> forgotten;
    for (const auto& resource : m_forgotten)
        forgotten.push_back(resource.get());
    for (iResource* resource : forgotten) {
        const auto is_it = [&](const auto& entry) { return entry.get() == resource; };
        if (std::any_of(m_forgotten.begin(), m_forgotten.end(), is_it) && condition(*resource))
            takeOut(resource);
    }
}

void cResourceManager::deleteAllSoundResource() {
    deleteWhere([](const iResource& resource) { return resource.getType() == eResourceType::sound; });
}

void cResourceManager::preResetGraphics() {
    ENGINE_MARK;
    for (iResource* resource : m_graphics_resources)
        resource->preUpdate();
}

void cResourceManager::restoreGraphics() {
    ENGINE_MARK;
    for (iResource* resource : m_graphics_resources)
        resource->update();
}

void cResourceManager::refresh() {
    ENGINE_MARK;
    for (iResource* resource : getOrdered()) {
        if (resource->getType() != eResourceType::texture)
            continue;
        resource->preUpdate();
        resource->update();
    }
}

const String& cResourceManager::getResourceName(const iResource* resource) const {
    const auto known = m_names.find(resource);
    if (known == m_names.end())
        throw "Unknown resource.";
    return known->second;
}

void cResourceManager::resourcesToLog(const String& path) {
    ENGINE_MARK;
    WString text = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<ResourceLog>\n";
    for (const auto& [name, resource] : m_resources) {
        const UInt type = static_cast<UInt>(resource->getType());
        text += u"<Tag Path=\"" + toXmlText(toWide(name)) + u"\" Type=\"" + toWide(std::to_string(type)) + u"\" />\n";
    }
    text += u"</ResourceLog>";
    const std::unique_ptr<iFile> file = cFileManager::getInstance()->create(path, true);
    writeWStringAsRaw(file.get(), text.data(), static_cast<ULong>(text.size()));
    file->close();
}

void cResourceManager::logToResources(const iXML* log, UInt first, UInt last) {
    ENGINE_MARK;
    for (UInt i = first; i < last; ++i) {
        iXML* tag = nullptr;
        if (!log->get(i, tag))
            return;
        const eResourceType type = readType(*tag);
        if (canLoad(type))
            getByType(toNarrow((*tag)[u"Path"]), type)->release();
    }
}

void cResourceManager::clear() {
    deleteWhere(isUnused);
}

void cResourceManager::clearUseless() {
    deleteWhere(isUnused);
}

void cResourceManager::getResourceNames(std::set<String>& names) const {
    for (const auto& [name, resource] : m_resources)
        names.insert(name);
}

iResource* cResourceManager::getResource(const String& path) {
    const eResourceType type = toResourceType(path);
    return type == eResourceType::none ? nullptr : getByType(path, type);
}

void cResourceManager::unloadUselessResource(const String& path) {
    ENGINE_MARK;
    const auto known = m_resources.find(toFileKey(path));
    if (known != m_resources.end() && !known->second->isUsed())
        takeOut(known->second.get());
}

}  // namespace Engine
