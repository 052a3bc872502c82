#pragma once

#include <memory>

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// What a resource is, told by its file's extension. The numbers stand in resource logs.
enum class eResourceType : UInt {
    texture = 0,    ///< dds, jng, png, jpg, tga, bmp
    xml = 1,        ///< xml
    font = 2,       ///< fnt
    shader = 3,     ///< vsh
    sound = 4,      ///< ogg, wav
    mesh = 5,       ///< mesh
    animation = 6,  ///< anim
    none = 8,       ///< anything else
};

/// Something loaded from a file and shared by name: made by the resource manager, counted by its holders.
///
/// Each getter of the manager adds a reference and the holder gives it back with release(). A count of zero deletes
/// nothing: the resource stays cached until the manager is asked for a clean-up.
class iResource {
public:
    iResource() = default;
    explicit iResource(String name) : m_name(std::make_unique<const String>(std::move(name))) {}
    /// Leaves the resource manager's tables, if it is in them.
    virtual ~iResource();
    iResource(const iResource&) = delete;
    iResource& operator=(const iResource&) = delete;

    virtual eResourceType getType() const = 0;
    virtual void preUpdate() {}  ///< lets device objects go before a device reset
    virtual void update() {}     ///< makes them again after it
    virtual iResource* addRef() {
        ++m_references;
        return this;
    }
    /// True if the count fell below 1.
    virtual Bool release() { return --m_references < 1; }
    virtual Bool isUsed() const { return m_references > 0; }
    virtual const String& getName() const;

private:
    // The name lies apart, so that the tags of a document, resources without one, stay small.
    std::unique_ptr<const String> m_name;  ///< lower case, "/" separators; null: empty
    Int m_references = 0;
};

}  // namespace Engine
