#pragma once

#include <map>
#include <set>

#include "Engine/core/Singleton.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

/// Translations of the English texts that code and data use, from "sys/strings.xml":
///
///     <Strings><s><text>Road</text><translation>...</translation></s> ... </Strings>
///
/// A text without a translation is shown as it is. With the constant `game`/`DumpStrings` set it is shown behind seven
/// exclamation marks instead, and all such texts are written to "strdubp.xml" in the writable directory at the end, in
/// the form above, for a translator to fill in.
class cStringManager : public cSingleton<cStringManager> {
public:
    /// Reads the constant and the table; without a file the table is empty. A broken file is thrown as cXML does.
    cStringManager();
    /// Writes "strdubp.xml" in dump mode. A failure is left in callStackText().
    virtual ~cStringManager();

    /// The text to show. For a text that is not in the table the reference is valid until the next such call.
    virtual const WString& getString(const WString& text) const;

private:
    void load();
    void dump() const;

    mutable std::map<WString, WString> m_strings;  ///< dump mode enters what is missing
    mutable std::set<WString> m_used;              ///< texts found missing, in dump mode
    mutable WString m_unknown;                     ///< what the last call for an unknown text gave
    Bool m_dump = false;
};

}  // namespace Engine
