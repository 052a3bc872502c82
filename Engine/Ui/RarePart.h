#pragma once

#include <memory>

#include "Engine/core/Types.h"

namespace Engine {

/// A part that few objects of a class need: as T() says until it is first written, and made only then. A copy of the
/// object gets a part of its own.
template <class T>
class cRarePart {
public:
    cRarePart() = default;
    cRarePart(const cRarePart& other) : m_part(other.m_part ? std::make_unique<T>(*other.m_part) : nullptr) {}
    cRarePart& operator=(const cRarePart&) = delete;

    Bool isMade() const { return m_part != nullptr; }
    const T& get() const {
        static const T absent{};
        return m_part ? *m_part : absent;
    }
    T& make() {
        if (!m_part)
            m_part = std::make_unique<T>();
        return *m_part;
    }

private:
    std::unique_ptr<T> m_part;
};

}  // namespace Engine
