#pragma once

#include <iterator>
#include <map>
#include <memory_resource>
#include <utility>

namespace Engine {

/// A set of objects in the order of a key, which stays walkable while it changes.
///
/// A walk visits each entry once; entries may be added, erased or moved by what the visit calls, at any depth. Keys,
/// not addresses, give the order, so it is the same in every run; and no entry is ever read through its pointer, so the
/// pointer may be dead.
///
/// Whoever keeps the place that insert() gives can erase the entry without a search.
template <class Key, class T>
class cOrderedSet {
public:
    using PLACE = typename std::pmr::map<Key, T*>::iterator;

    cOrderedSet() = default;
    /// @param memory  of the entries; outlives the set
    explicit cOrderedSet(std::pmr::memory_resource& memory) : m_entries(&memory) {}

    /// Does nothing if the key is there already. The place is good until the entry is erased.
    PLACE insert(const Key& key, T* object) { return m_entries.emplace(key, object).first; }

    void erase(const Key& key) {
        const PLACE place = m_entries.find(key);
        if (place != m_entries.end())
            erase(place);
    }

    void erase(PLACE place) {
        passOver(place);
        m_entries.erase(place);
    }

    /// Gives the entry another key, which no other has: as if it were erased and inserted anew, but without a search
    /// where it stays between its neighbours.
    PLACE move(PLACE place, const Key& key) {
        passOver(place);
        const PLACE hint = std::next(place);
        auto node = m_entries.extract(place);
        node.key() = key;
        return m_entries.insert(hint, std::move(node));
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
    /// The place of one walk; walks may be nested.
    struct sWalk {
        explicit sWalk(cOrderedSet& walked) : set(walked), next(set.m_entries.begin()), outer(set.m_walks) {
            set.m_walks = this;
        }
        ~sWalk() { set.m_walks = outer; }
        sWalk(const sWalk&) = delete;
        sWalk& operator=(const sWalk&) = delete;

        cOrderedSet& set;
        PLACE next;
        sWalk* outer;
    };

    /// No walk comes to this place any more.
    void passOver(PLACE place) {
        for (sWalk* walk = m_walks; walk; walk = walk->outer) {
            if (walk->next == place)
                ++walk->next;
        }
    }

    std::pmr::map<Key, T*> m_entries;
    sWalk* m_walks = nullptr;
};

}  // namespace Engine
