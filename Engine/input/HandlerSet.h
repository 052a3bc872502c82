#pragma once

#include <map>
#include <vector>

#include "Engine/Ui/View.h"
#include "Engine/core/Types.h"

namespace Engine {

/// Handlers of one kind of event, each bound together with the view that is handed back at the call.
///
/// The pair is the entry, so the same pair binds once. Order: by the view's time of creation (no view first), then by
/// the time of binding.
template <class F>
class cHandlerSet {
public:
    struct sEntry {
        F handler;
        cView* view;
        ULongLong number;  ///< of the view, 0 without one

        /// Has the view been deleted since? Its address may belong to another one by now.
        Bool isGone() const { return view && (!cView::isValid(view) || view->getCreationNumber() != number); }
    };

    void add(F handler, cView* view) {
        if (!handler)
            return;
        const ULongLong number = numberOf(view);
        auto& handlers = m_entries[number];
        for (const sEntry& entry : handlers) {
            if (entry.handler == handler)
                return;
        }
        handlers.push_back({handler, view, number});
    }

    void remove(F handler, const cView* view) {
        const auto it = m_entries.find(numberOf(view));
        if (it == m_entries.end())
            return;
        std::erase_if(it->second, [&](const sEntry& entry) { return entry.handler == handler; });
        if (it->second.empty())
            m_entries.erase(it);
    }

    void removeView(ULongLong number) { m_entries.erase(number); }
    void clear() { m_entries.clear(); }
    bool empty() const { return m_entries.empty(); }

    template <class V>
    void forEach(V&& visit) const {
        for (const auto& [number, handlers] : m_entries) {
            for (const sEntry& entry : handlers)
                visit(entry);
        }
    }

private:
    static ULongLong numberOf(const cView* view) { return view ? view->getCreationNumber() : 0; }

    std::map<ULongLong, std::vector<sEntry>> m_entries;
};

}  // namespace Engine
