#pragma once

#include <map>
#include <utility>

namespace Engine {

/// A set of objects in the order of a key, which stays walkable while it changes.
///
/// A walk visits each entry once; entries may be added, erased or moved by what the visit calls, at any depth. Keys,
/// not addresses, give the order, so it is the same in every run; and no entry is ever read through its pointer, so the
/// pointer may be dead.
template <class Key, class T>
class cOrderedSet {
public:
    void insert(const Key& key, T* object) { m_entries.emplace(key, object); }

    void erase(const Key& key) {
        const auto it = m_entries.find(key);
        if (it == m_entries.end())
            return;
        for (sWalk* walk = m_walks; walk; walk = walk->outer) {
            if (walk->next == it)
                ++walk->next;
        }
        m_entries.erase(it);
    }

    bool contains(const Key& key) const { return m_entries.contains(key); }
    bool empty() const { return m_entries.empty(); }
    std::size_t size() const { return m_entries.size(); }
    T* first() const { return m_entries.begin()->second; }

    /// Calls visit(object) for each entry in order.
    template <class F>
    void walk(F&& visit) {
        sWalk walk(*this);
        while (walk.next != m_entries.end()) {
            T* object = walk.next->second;
            ++walk.next;
            visit(object);
        }
    }

private:
    using ENTRIES = std::map<Key, T*>;

    /// The place of one walk; walks may be nested.
    struct sWalk {
        explicit sWalk(cOrderedSet& walked) : set(walked), next(set.m_entries.begin()), outer(set.m_walks) {
            set.m_walks = this;
        }
        ~sWalk() { set.m_walks = outer; }
        sWalk(const sWalk&) = delete;
        sWalk& operator=(const sWalk&) = delete;

        cOrderedSet& set;
        typename ENTRIES::iterator next;
        sWalk* outer;
    };

    ENTRIES m_entries;
    sWalk* m_walks = nullptr;
};

}  // namespace Engine
