#pragma once

#include <compare>
#include <map>
#include <optional>
#include <set>

#include "Engine/Ui/OrderedSet.h"
#include "Engine/core/Types.h"

/// The engine-wide sets of views that each frame walks.
namespace Engine {

class cView;
class cControl;

/// Views that get one call each frame. While a pass runs, additions wait for its end and removals take effect at once
/// (the view gets no call) but leave the set at the end.
class cPassSet {
public:
    void add(const cView& view);
    void remove(const cView& view);

    /// Starts a pass and calls visit for every view of the set.
    template <class F>
    void walk(F&& visit) {
        m_iterating = true;
        for (const auto& [number, view] : m_views) {
            if (!m_removals.contains(number))
                visit(view);
        }
    }
    /// Ends the pass: waiting additions go in, then waiting removals go out.
    void applyPending();

    Bool contains(const cView& view) const;

private:
    std::map<ULongLong, cView*> m_views;
    std::map<ULongLong, cView*> m_additions;
    std::set<ULongLong> m_removals;
    Bool m_iterating = false;
};

/// Place of a control in the drawing order: a higher deep is drawn later, on top; equal ones in order of creation.
struct sDrawKey {
    Float deep = 0.0f;
    ULongLong number = 0;

    friend auto operator<=>(const sDrawKey&, const sDrawKey&) = default;
};

namespace UI {

/// Controls to draw. One entry a control, however often it is shown.
cOrderedSet<sDrawKey, cControl>& getDrawSet();
cPassSet& getEnabled();
cPassSet& getAbsoluteEnabled();
/// Views being faded. While there are any, no view is processed.
cOrderedSet<ULongLong, cView>& getTransparenty();

}  // namespace UI

/// A control's own place in the drawing order. A copy of the control has none until it is shown.
class cDrawPlace {
public:
    cDrawPlace() = default;
    cDrawPlace(const cDrawPlace&) {}
    cDrawPlace& operator=(const cDrawPlace&) = delete;
    ~cDrawPlace() { leave(); }

    void enter(const sDrawKey& key, cControl* control);  ///< nothing if it has a place already
    void move(const sDrawKey& key);                      ///< nothing without a place
    void leave();
    Bool isTaken() const { return m_place.has_value(); }

private:
    std::optional<cOrderedSet<sDrawKey, cControl>::PLACE> m_place;
};

}  // namespace Engine
