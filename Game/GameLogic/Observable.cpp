#include "Game/GameLogic/Observable.h"

#include <algorithm>

void iObservable::addListener(iListener* listener) {
    if (std::find(m_listeners.begin(), m_listeners.end(), listener) == m_listeners.end())
        m_listeners.push_back(listener);
}

void iObservable::removeListener(iListener* listener) {
    std::erase(m_listeners, listener);
}

// Who is told may take itself or another one off, so a copy is walked, and who has gone from the list is passed over.

template <class F>
void iObservable::tell(Int id, F&& what) {
    for (iListener* listener : std::vector(m_listeners)) {
        const Bool listens = std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end();
        if (listens && listener->getListenerId() == id)
            what(*listener);
    }
}

void iObservable::notify(iEvent* event) {
    tell(event->id, [event](iListener& listener) { listener.onEvent(event); });
}

void iObservable::notifyDestroyed(Int id) {
    tell(id, [](iListener& listener) { listener.onObservedDestroyed(); });
}
