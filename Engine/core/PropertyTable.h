#pragma once

#include <map>

#include "Engine/core/String.h"
#include "Engine/core/TextConvert.h"
#include "Engine/core/Types.h"

namespace Engine {

/// What constants and settings are: values by section and key, kept as text and converted at each read.
///
/// In a file each child of the root is a section and each of its attributes a key:
///
///     <main><graphics width="1024" height="768" fullscreen="1"/></main>
class cPropertyTable {
public:
    /// Replaces the table by that of a file. What is wrong with the file is thrown as cResourceManager::getXML does;
    /// the table is then as it was.
    void load(const String& filename);

    /// Converts the value of a key by the rules of parseText. False if there is no such key: res, which is thus the
    /// default, stays, and the key is entered with an empty value. A value that doesn't parse leaves res too, but
    /// gives true.
    /// Throws a String for a new section or key whose name could not stand in a file.
    template <class T>
    Bool getProperty(const String& section, const String& name, T& res) {
        const WString* value = findOrEnter(section, name);
        if (!value)
            return false;
        parseText(*value, res);
        return true;
    }

protected:
    using SECTION = std::map<String, WString>;

    cPropertyTable() = default;
    ~cPropertyTable() = default;

    /// The value of a key, entered empty if it is new. Throws as getProperty.
    WString& enter(const String& section, const String& name);

    std::map<String, SECTION> m_sections;
    String m_filename;  ///< of the file read last; empty: none

private:
    const WString* findOrEnter(const String& section, const String& name);
};

}  // namespace Engine
