#pragma once

#include <vector>

#include "Game/Types.h"

/// What an observed object tells: its id says whom it is for.
struct iEvent {
    virtual ~iEvent() = default;
    Int id = 0;
};

/// Who wants to know of an object's events and of its end.
///
/// The object does not own its listeners, and they don't own it: a listener that goes first takes itself off.
class iListener {
public:
    virtual ~iListener() = default;
    virtual Int getListenerId() const = 0;
    virtual void onEvent(iEvent* event) = 0;
    virtual void onObservedDestroyed() = 0;
};

/// An object that can be listened to. Listeners are told in the order in which they came.
class iObservable {
public:
    virtual ~iObservable() = default;
    virtual void addListener(iListener* listener);     ///< a second time changes nothing
    virtual void removeListener(iListener* listener);  ///< nothing for one that does not listen
    virtual void notify(iEvent* event);                ///< the listeners with the event's id
    virtual void notifyDestroyed(Int id);              ///< the listeners with this id

private:
    template <class F>
    void tell(Int id, F&& what);

    std::vector<iListener*> m_listeners;
};
