#pragma once

#include <map>
#include <set>

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
class cResourceManager : public cSingleton<cResourceManager> {
public:
    cResourceManager();
    virtual ~cResourceManager();

    virtual iResource* getTexture(const String& path);
    virtual iResource* getFont(const String& path);
    virtual iResource* getSound(const String& path);
    virtual iResource* getMesh(const String& path);
    virtual iResource* getAnimation(const String& path);
    virtual iXML* getXML(const String& path);
    /// Forgets the entry; the object is not deleted.
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
    /// Loads the entries first to last - 1 of a resource log and leaves them cached at count 0.
    virtual void logToResources(const iXML* log, UInt first, UInt last);
    virtual void clear();
    virtual void clearUseless();
    virtual void getResourceNames(std::set<String>& names) const;
    /// Dispatches by the file's extension; null for one that is unknown.
    virtual iResource* getResource(const String& path);
    virtual void unloadUselessResource(const String& path);
    virtual iResource* getShader(const String& path);
};

}  // namespace Engine
