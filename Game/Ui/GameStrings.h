#pragma once

#include <map>

#include "Engine/core/Singleton.h"
#include "Game/Types.h"

/// The texts that the game shows by name: questions of dialogs, captions of tips, the last words after a failure.
///
/// They lie in "GameStrings.xml" and "YesNoStrings.xml", read in this order; a later text of the same name wins:
///
///     <GameStrings><Strings><s id="replay" value="Play this level again?"/> ... </Strings></GameStrings>
///
/// The texts are English; whoever shows one passes it through cStringManager, as text lines do by themselves.
class cGameStrings : public Engine::cSingleton<cGameStrings> {
public:
    /// Throws as cResourceManager::getXML() for a file that is missing or broken.
    cGameStrings();

    /// The empty text for a name that is not in the table.
    const WString& getString(const String& id) const;

private:
    void load(const String& path);

    std::map<String, WString> m_strings;
};

/// A text of the game by its name; empty without the game's texts.
inline WString getGameString(const String& id) {
    const cGameStrings* strings = cGameStrings::getInstance();
    return strings ? strings->getString(id) : WString();
}
