#include "Engine/core/CallStack.h"

#include <exception>

namespace Engine {

namespace {

/// Lines of the marks that the exception in flight has passed, each with its line break in front.
String& passedMarks() {
    static String lines;
    return lines;
}

String currentExceptionText() {
    try {
        throw;
    } catch (const std::string& text) {
        return text;
    } catch (const char* text) {
        return text ? text : "";
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return {};
    }
}

}  // namespace

cCallMark::cCallMark(const char* text) : m_text(text), m_unwinding(std::uncaught_exceptions()) {
    if (m_unwinding == 0 && !passedMarks().empty())
        passedMarks().clear();
}

cCallMark::~cCallMark() {
    if (std::uncaught_exceptions() > m_unwinding) {
        passedMarks() += '\n';
        passedMarks() += m_text;
    } else if (m_unwinding == 0 && !passedMarks().empty()) {
        passedMarks().clear();
    }
}

String& callStackText() {
    static String text;
    return text;
}

const String& currentFailure() {
    callStackText() = currentExceptionText() + passedMarks();
    passedMarks().clear();
    return callStackText();
}

}  // namespace Engine
