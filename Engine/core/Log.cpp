#include "Engine/core/Log.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <iostream>
#include <string_view>
#include <utility>

#include "Engine/core/CallStack.h"

namespace Engine {

namespace {

struct sCloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FILE_HOLDER = std::unique_ptr<std::FILE, sCloseFile>;

FILE_HOLDER openForAppending(const String& file_name) {
    return FILE_HOLDER(std::fopen(file_name.c_str(), "ab"));
}

String toOpenFailure(const String& file_name) {
    return "Unable to open [" + file_name + "] log file.\n";
}

String formatNarrow(const char* format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    String text;
    if (length > 0) {
        text.resize(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(text.data(), text.size(), format, again);
        text.pop_back();
    }
    va_end(again);
    return text;
}

/// One conversion with its argument already taken from the list.
template <class T>
String formatOne(const String& conversion, T value) {
    char text[512];
    const int length = std::snprintf(text, sizeof(text), conversion.c_str(), value);
    return String(std::string_view(
        text, length < 0 ? 0 : std::min<std::size_t>(static_cast<std::size_t>(length), sizeof(text) - 1)));
}

/// Writes wide formats: the texts between conversions are narrowed, each conversion is handed to the C library by
/// itself.
class cWideFormatter {
public:
    explicit cWideFormatter(std::u16string_view format) : m_format(toNarrow(format)) {}

    String format(std::va_list* arguments) {
        String out;
        for (std::size_t at = 0; at < m_format.size();) {
            const std::size_t percent = std::min(m_format.find('%', at), m_format.size());
            out.append(m_format, at, percent - at);
            at = percent;
            if (at < m_format.size())
                out += convert(at, arguments);
        }
        return out;
    }

private:
    /// Takes the conversion that begins at this place and moves the place behind it.
    String convert(std::size_t& at, std::va_list* arguments) {
        const std::size_t end = m_format.find_first_not_of("-+ #0123456789.l", at + 1);
        if (end == String::npos)
            return String(m_format.substr(std::exchange(at, m_format.size())));
        const String conversion(m_format.substr(at, end + 1 - at));
        at = end + 1;
        String plain = conversion;
        std::erase(plain, 'l');
        switch (conversion.back()) {
            case 'd':
            case 'i':
            case 'c':
                return formatOne(plain, va_arg(*arguments, int));
            case 'u':
            case 'x':
            case 'X':
                return formatOne(plain, va_arg(*arguments, unsigned));
            case 'f':
            case 'g':
            case 'e':
                return formatOne(plain, va_arg(*arguments, double));
            case 's':
                return toNarrow(std::u16string_view(va_arg(*arguments, const char16_t*)));
            case 'S':
                return va_arg(*arguments, const char*);
            default:
                return conversion == "%%" ? String("%") : conversion;
        }
    }

    String m_format;
};

}  // namespace

cLog::cLog(const String& log_name) : m_file_name(log_name + ".log") {
    const FILE_HOLDER file = openForAppending(m_file_name);
    if (!file) {
        callStackText() += toOpenFailure(m_file_name);
        throw String(callStackText());
    }
    const Platform::sLocalTime now = cLogManager::getInstance()->getLocalTime();
    std::fprintf(file.get(),
                 "\n%02d/%02d/%02d - %02d:%02d:%02d --------------------------------------------------------\n",
                 now.month, now.day, now.year % 100, now.hour, now.minute, now.second);
}

cLog::~cLog() = default;

void cLog::printf(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const String text = formatNarrow(format, arguments);
    va_end(arguments);
    writeLine(text);
}

void cLog::printf(const char16_t* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const String text = cWideFormatter(format).format(&arguments);
    va_end(arguments);
    writeLine(text);
}

void cLog::writeLine(const String& text) const {
    static UInt counter = 0;
    const FILE_HOLDER file = openForAppending(m_file_name);
    if (!file) {
        callStackText() = toOpenFailure(m_file_name);
        throw String(callStackText());
    }
    const Platform::sLocalTime now = cLogManager::getInstance()->getLocalTime();
    std::fprintf(file.get(), "[%d:%d:%d-%u]\t%s\n", now.hour, now.minute, now.second, counter++, text.c_str());
}

cLogManager::cLogManager() = default;
cLogManager::~cLogManager() = default;

cLogManager* cLogManager::getInstance() {
    static cLogManager manager;
    return &manager;
}

cLog* cLogManager::getLog(const String& log_name, Bool) {
    std::unique_ptr<cLog>& log = m_logs[log_name];
    if (!log)
        log = std::make_unique<cLog>(log_name);
    return log.get();
}

void cLogManager::closeLogs() {
    m_logs.clear();
}

void cLogManager::setClock(std::function<Platform::sLocalTime()> clock) {
    m_clock = std::move(clock);
}

Platform::sLocalTime cLogManager::getLocalTime() const {
    return m_clock ? m_clock() : Platform::readSystemClock();
}

namespace {

sErrorHooks& errorHooks() {
    static sErrorHooks hooks;
    return hooks;
}

void (*error_hook)() = nullptr;

/// A step of the report may fail by itself; the others are taken all the same.
void attempt(const std::function<void()>& step) {
    try {
        if (step)
            step();
    } catch (...) {
        std::cerr << currentFailure() << std::endl;
    }
}

}  // namespace

void setErrorHooks(sErrorHooks hooks) {
    errorHooks() = std::move(hooks);
}

void setErrorHook(void (*hook)()) {
    error_hook = hook;
}

void reportError(const String& text, const String&) {
    ENGINE_MARK;
    try {
        cLogManager::getInstance()->getLog("error", false)->printf("%s", text.c_str());
    } catch (...) {
        std::cerr << text << std::endl;
    }
    attempt(errorHooks().post_quit);
    attempt(errorHooks().run_pump);
    if (error_hook)
        error_hook();
}

}  // namespace Engine
