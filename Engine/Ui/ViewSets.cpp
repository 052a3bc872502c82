#include "Engine/Ui/ViewSets.h"

#include "Engine/Ui/View.h"

namespace Engine {

void cPassSet::add(const cView& view) {
    const ULongLong number = view.getCreationNumber();
    auto& target = m_iterating ? m_additions : m_views;
    target.emplace(number, const_cast<cView*>(&view));
    m_removals.erase(number);
}

void cPassSet::remove(const cView& view) {
    const ULongLong number = view.getCreationNumber();
    m_additions.erase(number);
    if (m_iterating)
        m_removals.insert(number);
    else
        m_views.erase(number);
}

void cPassSet::applyPending() {
    m_views.merge(m_additions);
    m_additions.clear();
    for (const ULongLong number : m_removals)
        m_views.erase(number);
    m_removals.clear();
    m_iterating = false;
}

Bool cPassSet::contains(const cView& view) const {
    const ULongLong number = view.getCreationNumber();
    return (m_views.contains(number) || m_additions.contains(number)) && !m_removals.contains(number);
}

namespace UI {

// The sets live as long as the program: a view that outlives its screen by mistake still finds them.

cOrderedSet<sDrawKey, cControl>& getDrawSet() {
    // A frame walks all of it, so its entries lie side by side.
    static auto* memory = new std::pmr::unsynchronized_pool_resource;
    static auto* set = new cOrderedSet<sDrawKey, cControl>(*memory);
    return *set;
}

cPassSet& getEnabled() {
    static auto* set = new cPassSet;
    return *set;
}

cPassSet& getAbsoluteEnabled() {
    static auto* set = new cPassSet;
    return *set;
}

cOrderedSet<ULongLong, cView>& getTransparenty() {
    static auto* set = new cOrderedSet<ULongLong, cView>;
    return *set;
}

}  // namespace UI

void cDrawPlace::enter(const sDrawKey& key, cControl* control) {
    if (!m_place)
        m_place = UI::getDrawSet().insert(key, control);
}

void cDrawPlace::move(const sDrawKey& key) {
    if (m_place)
        m_place = UI::getDrawSet().move(*m_place, key);
}

void cDrawPlace::leave() {
    if (!m_place)
        return;
    UI::getDrawSet().erase(*m_place);
    m_place.reset();
}

}  // namespace Engine
