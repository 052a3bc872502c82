#pragma once

#include "Engine/core/PropertyTable.h"
#include "Engine/core/Singleton.h"

namespace Engine {

/// What a player may change ("sys/settings.xml"): read with getProperty, changed with setProperty, and written back by
/// the destructor into the writable directory, where it hides the shipped file.
///
/// It dies after everything that keeps its settings here has written them. Every key that was ever asked for is in the
/// saved file, so a player finds there what can be set.
class cSettings : public cPropertyTable, public cSingleton<cSettings> {
public:
    cSettings() = default;
    explicit cSettings(const String& filename) { load(filename); }
    /// Saves. A failure is left in callStackText().
    ~cSettings();

    /// Keeps the value as the text of formatText. Throws as getProperty for a name that could not stand in a file.
    template <class T>
    void setProperty(const String& section, const String& name, const T& value) {
        enter(section, name) = formatText(value);
    }

    /// Writes the file that was loaded, whole or not at all; does nothing if none was, so that a file which couldn't
    /// be read is never lost to an empty one. Throws as writeWStringAsXml.
    void save() const;

private:
    WString format() const;
};

}  // namespace Engine
