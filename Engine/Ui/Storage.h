#pragma once

#include <map>
#include <utility>

#include "Engine/core/Types.h"

namespace Engine {

/// A mix-in that keeps a registry of all live objects of a class, in order of creation.
///
/// `class cMan : public cStorage<cView>`: every cMan is in cStorage<cView>::getStorage(). Classes over one base that
/// want registries of their own give them different numbers N.
template <class T, Int N = 0>
class cStorage : public T {
public:
    using STORAGE = std::map<ULongLong, T*>;

    template <class... Args>
    explicit cStorage(Args&&... args) : T(std::forward<Args>(args)...), m_storage_number(next()++) {
        getStorage().emplace(m_storage_number, this);
    }
    cStorage(const cStorage& other) : T(other), m_storage_number(next()++) {
        getStorage().emplace(m_storage_number, this);
    }
    ~cStorage() override { getStorage().erase(m_storage_number); }

    static STORAGE& getStorage() {
        static auto* storage = new STORAGE;
        return *storage;
    }

private:
    static ULongLong& next() {
        static ULongLong number = 0;
        return number;
    }

    ULongLong m_storage_number;
};

}  // namespace Engine
