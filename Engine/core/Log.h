#pragma once

#include <functional>
#include <map>
#include <memory>

#include "Engine/core/LastError.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"
#include "Engine/platform/Platform.h"

namespace Engine {

/// One log: a text file in the process's current directory that only grows.
///
/// Each line is opened, written and closed by itself, so that a crash loses nothing:
/// "[hours:minutes:seconds-counter]", a tab, the text. The counter runs over all logs together.
class cLog {
public:
    /// Writes the header line with date and time.
    /// Throws "Unable to open [<file>] log file.\n"; the text is appended to callStackText() as well.
    explicit cLog(const String& log_name);
    virtual ~cLog();
    cLog(const cLog&) = delete;
    cLog& operator=(const cLog&) = delete;

    /// One line, formatted as by the C library. Texts of any length are written whole.
    /// Throws as the constructor does, with callStackText() replaced.
    [[gnu::format(printf, 2, 3)]] virtual void printf(const char* format, ...);
    /// The same with a wide format. Conversions: d i u x X c f g e % with flags, width and precision as usual, and s
    /// for a wide text (const char16_t*), S for a narrow one. Anything else is written as it stands.
    virtual void printf(const char16_t* format, ...);

private:
    void writeLine(const String& text) const;

    String m_file_name;  ///< log name + ".log"
};

/// All logs by name. There from the first use to the program's end, so before and after every other object.
class cLogManager {
public:
    static cLogManager* getInstance();
    virtual ~cLogManager();
    cLogManager(const cLogManager&) = delete;
    cLogManager& operator=(const cLogManager&) = delete;

    /// The log of this name, made at first use. It belongs to the manager and lives as long as it does; keep changes
    /// nothing about that.
    virtual cLog* getLog(const String& log_name, Bool keep);

    /// Ends all logs; the next getLog() of a name starts a new one with a new header.
    void closeLogs();
    /// Where the date and time of lines come from; an empty function means the system's local time.
    void setClock(std::function<Platform::sLocalTime()> clock);
    Platform::sLocalTime getLocalTime() const;

private:
    cLogManager();

    std::map<String, std::unique_ptr<cLog>> m_logs;
    std::function<Platform::sLocalTime()> m_clock;
};

/// What reportError() asks of the program around it; an empty function is passed over.
struct sErrorHooks {
    std::function<void()> post_quit;  ///< posts the quit message
    std::function<void()> run_pump;   ///< takes messages until the pump stops
};
void setErrorHooks(sErrorHooks hooks);

/// Called last by reportError(); null for none.
void setErrorHook(void (*hook)());

/// Writes the text of a failure that nobody could handle to the log "error" (to standard error if that can't be
/// written), then ends the program's pump and calls the error hook. The title is not written. Throws nothing itself.
void reportError(const String& text, const String& title);

}  // namespace Engine
