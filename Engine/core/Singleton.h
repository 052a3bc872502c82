#pragma once

namespace Engine {

/// Base of each manager: one static pointer per class, filled by the constructor and cleared by the destructor.
///
/// It does not own the object. getInstance() is null while there is none, so a caller that may run early or late
/// asks before it uses it.
/// Throws the plain string "Object already exist." when a second instance is constructed.
template <class T>
class cSingleton {
public:
    cSingleton(const cSingleton&) = delete;
    cSingleton& operator=(const cSingleton&) = delete;

    /// The cast waits for this call: while the base is constructed there is no T yet.
    static T* getInstance() { return static_cast<T*>(m_instance); }

protected:
    cSingleton() {
        if (m_instance)
            throw "Object already exist.";
        m_instance = this;
    }
    ~cSingleton() { m_instance = nullptr; }

private:
    static inline cSingleton* m_instance = nullptr;
};

}  // namespace Engine
