#pragma once

#include <utility>

#include "Engine/core/Resource.h"

namespace Engine {

/// One counted reference on a resource, given back at the end of the holder's life.
class cResourceRef {
public:
    cResourceRef() = default;
    explicit cResourceRef(iResource* resource) : m_resource(resource) {
        if (m_resource)
            m_resource->addRef();
    }
    cResourceRef(const cResourceRef& other) : cResourceRef(other.m_resource) {}
    cResourceRef(cResourceRef&& other) noexcept : m_resource(std::exchange(other.m_resource, nullptr)) {}
    cResourceRef& operator=(cResourceRef other) noexcept {
        std::swap(m_resource, other.m_resource);
        return *this;
    }
    ~cResourceRef() {
        if (m_resource)
            m_resource->release();
    }

    /// Takes over the reference that a getter of the resource manager has added.
    static cResourceRef adopt(iResource* resource) {
        cResourceRef ref;
        ref.m_resource = resource;
        return ref;
    }

    iResource* get() const { return m_resource; }
    explicit operator bool() const { return m_resource != nullptr; }

private:
    iResource* m_resource = nullptr;
};

}  // namespace Engine
