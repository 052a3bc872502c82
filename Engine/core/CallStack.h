#pragma once

#include "Engine/core/String.h"
#include "Engine/core/Types.h"

#define ENGINE_MARK_NAME_(line) engine_call_mark_##line
#define ENGINE_MARK_AT_(text, line) const ::Engine::cCallMark ENGINE_MARK_NAME_(line)(text)
#define ENGINE_MARK_LINE_(text, line) ENGINE_MARK_AT_(text, line)

/// Marks the function for the call-stack text of failures. Stands at the head of each non-trivial function.
#define ENGINE_MARK ENGINE_MARK_LINE_(__PRETTY_FUNCTION__, __LINE__)

/// The same for one statement, named by its text.
#define ENGINE_MARK_TEXT(text) ENGINE_MARK_LINE_(text, __LINE__)

namespace Engine {

/// A mark on the stack that adds its line to the trace while, and only while, an exception passes it.
///
/// The trace of one failure is gathered from the innermost mark outwards and taken by the handler through
/// currentFailure(). A failure that is swallowed on the way leaves nothing: the next mark that is made or left on
/// the normal path drops its lines.
class cCallMark {
public:
    /// @param text  the function's signature; must outlive the mark (a literal)
    explicit cCallMark(const char* text);
    ~cCallMark();
    cCallMark(const cCallMark&) = delete;
    cCallMark& operator=(const cCallMark&) = delete;

private:
    const char* m_text;
    int m_unwinding;  ///< exceptions in flight when the mark was made
};

/// The report of the last failure: its message, then one line per mark, innermost first. Empty at start.
String& callStackText();

/// Called inside a catch clause: the text of the exception being handled, followed by "\n" and the marker of each
/// marked function that it has left, innermost first. Also stored in callStackText(); the gathered lines are used up.
/// The text is that of a String, a standard string, a plain string or a standard exception; empty for any other.
const String& currentFailure();

}  // namespace Engine
