#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

class cView;

/// The views that wait for their deletion between frames.
class cScavenger {
public:
    /// Notes the view with a text that says who discarded it; a second time changes nothing.
    static void add(cView* view, const String& where);
    static void remove(const cView* view);
    static Bool contains(const cView* view);
    /// Takes every noted view off its parent, then deletes them. Called once a frame, when no walk runs.
    static void free();
    /// Who discarded the view that is being deleted, for error reports.
    static const String& getLastText();
};

/// Hands a view over for deletion at the end of the frame.
/// Throws the plain string "discard" for a null view.
template <class T>
void discard(T* view, const String& where) {
    if (!view)
        throw "discard";
    cScavenger::add(view, where);
}

/// The caller's file and line, the usual text for discard(). Clang 14 has no std::source_location.
inline String here(const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
    return String(file) + ":" + std::to_string(line);
}

}  // namespace Engine
