#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>
#include <vector>

#include "Engine/core/Resource.h"
#include "Engine/core/Singleton.h"
#include "Engine/core/iXML.h"

namespace Engine {

/// The cache of everything loaded from files: one shared, counted object per name, letter case ignored.
///
/// A getter loads the file at first use and adds a reference; the holder gives it back with iResource::release().
/// A resource at count 0 stays cached until clear(), clearUseless() or unloadUselessResource().
/// Getters throw the plain string "Wrong resource type." for a name of another kind, and whatever loading throws;
/// nothing is then entered.
///
/// The manager knows no kind by itself but documents: whoever brings a kind registers its loader. A kind without one
/// makes its getter throw "cResourceManager: no loader for resources of kind <number>. File: <name>".
class cResourceManager : public cSingleton<cResourceManager> {
public:
    /// Makes the resource of a name (lower case). Fails with an exception, never with null.
    using LOADER = std::function<std::unique_ptr<iResource>(const String& name)>;

    cResourceManager();
    virtual ~cResourceManager();

    virtual iResource* getTexture(const String& path);
    virtual iResource* getFont(const String& path);
    virtual iResource* getSound(const String& path);
    virtual iResource* getMesh(const String& path);
    virtual iResource* getAnimation(const String& path);
    virtual iXML* getXML(const String& path);
    /// Forgets the entry, so that the next getter reads the file again. The object stays with its holders and goes with
    /// the first clean-up that finds it unused.
    virtual void releaseResource(const String& path);
    virtual void releaseResource(iResource* resource);
    virtual void deleteAllSoundResource();
    virtual void preResetGraphics();  ///< preUpdate() of all that lives on the device
    virtual void restoreGraphics();   ///< update() of the same
    virtual void refresh();           ///< reads every texture's file again
    /// Throws the plain string "Unknown resource.".
    virtual const String& getResourceName(const iResource* resource) const;
    /// Writes the list of what is loaded as a resource log in the common directory.
    virtual void resourcesToLog(const String& path);
    /// Loads the entries first to last - 1 of a resource log and leaves them cached at count 0. Kinds that can't be
    /// loaded are passed over: sounds in a program that runs silent.
    virtual void logToResources(const iXML* log, UInt first, UInt last);
    virtual void clear();
    virtual void clearUseless();
    virtual void getResourceNames(std::set<String>& names) const;
    /// Dispatches by the file's extension; null for one that is unknown.
    virtual iResource* getResource(const String& path);
    virtual void unloadUselessResource(const String& path);
    virtual iResource* getShader(const String& path);

    /// @param is_graphics  resources of the kind live on the device and are told of its resets
    void registerLoader(eResourceType type, LOADER loader, Bool is_graphics);
    /// Has the kind a loader? Sounds have none while the program runs silent.
    Bool canLoad(eResourceType type) const;

private:
    struct sKind {
        LOADER loader;
        Bool is_graphics = false;
    };

    iResource* getByType(const String& path, eResourceType type);
    std::vector<iResource*> getOrdered() const;
    void deleteWhere(const std::function<Bool(const iResource&)>& condition);
    std::unique_ptr<iResource> takeOut(iResource* resource);

    std::map<String, std::unique_ptr<iResource>> m_resources;  ///< by lower-case name
    std::unordered_map<const iResource*, String> m_names;      ///< the other way; never walked
    std::vector<iResource*> m_graphics_resources;              ///< those on the device, in order of their making
    std::vector<std::unique_ptr<iResource>> m_forgotten;       ///< without a name, until nobody holds them
    std::array<sKind, 7> m_kinds;                              ///< by eResourceType
};

/// The kind that a file's extension gives.
eResourceType toResourceType(const String& path);

}  // namespace Engine
