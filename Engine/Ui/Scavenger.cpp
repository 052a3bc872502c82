#include "Engine/Ui/Scavenger.h"

#include <map>
#include <vector>

#include "Engine/Ui/View.h"
#include "Engine/core/CallStack.h"

namespace Engine {

namespace {

struct sWaiting {
    cView* view;
    String text;
};

/// By number of creation: the older view is deleted first.
std::map<ULongLong, sWaiting>& waiting() {
    static auto* views = new std::map<ULongLong, sWaiting>;
    return *views;
}

String& lastText() {
    static String text;
    return text;
}

}  // namespace

void cScavenger::add(cView* view, const String& where) {
    waiting().emplace(view->getCreationNumber(), sWaiting{view, where});
}

void cScavenger::remove(const cView* view) {
    waiting().erase(view->getCreationNumber());
}

Bool cScavenger::contains(const cView* view) {
    return waiting().contains(view->getCreationNumber());
}

void cScavenger::free() {
    if (waiting().empty())
        return;
    ENGINE_MARK;

    // Hidden first, while it still is what it was: so each view lets go of its bindings in its own disabled().
    std::vector<ULongLong> numbers;
    for (const auto& [number, entry] : waiting())
        numbers.push_back(number);
    for (const ULongLong number : numbers) {
        const auto it = waiting().find(number);
        if (it == waiting().end())
            continue;
        cView* view = it->second.view;
        view->hide();
        view->setParent(nullptr);
    }
    // A view may go with another one: each is looked up again.
    for (const ULongLong number : numbers) {
        const auto it = waiting().find(number);
        if (it == waiting().end())
            continue;
        lastText() = it->second.text;
        delete it->second.view;
    }
}

const String& cScavenger::getLastText() {
    return lastText();
}

}  // namespace Engine
