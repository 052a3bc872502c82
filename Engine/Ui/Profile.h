#pragma once

#include <map>
#include <vector>

#include "Engine/Ui/Properties.h"
#include "Engine/core/Singleton.h"
#include "Engine/core/String.h"
#include "Engine/core/Types.h"

namespace Engine {

class iXML;

/// A named player: the list of players in "profiles.xml", and the properties of the current one in a file named by his
/// number, both in the directory of the constant `game`/`profiles`.
///
/// There is one profile at a time, that of the current player. Both files are written when the profile ends, if
/// anything has changed; the list also whenever a player comes or goes. Numbers are not given twice as long as anybody
/// is left.
///
/// A list or a player's file that can't be read is kept under its name with ".damaged" behind it, the log "profiles"
/// says so, and a fresh one takes its place; no file of any other player is touched. The same log tells of a profile
/// that could not be written at its end.
class cProfile : public cSingleton<cProfile> {
public:
    using NAME_LIST = std::vector<WString>;
    using INIT_HOOK = void (*)();

    /// Makes this name the current player: a known one's properties are read, a new one is created. Characters that no
    /// document can hold are left out of the name.
    explicit cProfile(const WString& name);
    virtual ~cProfile();

    /// Ends the profile that there is and begins that of a player.
    static void open(const WString& name);
    static void close();  ///< ends the profile that open() began

    /// Fills the properties with what a new player has. Called before a player's own values are read; null for none.
    static void setInitHook(INIT_HOOK hook);
    /// The player that "profiles.xml" remembers, without a profile object; empty if there is none.
    static WString getCurrentUser();
    /// The constant's directory with a "/" at its end.
    static String getProfilesDir();

    const WString& getName() const { return m_current_user; }  ///< empty once the last player is deleted
    /// The first of the players that are left becomes the current one, with his own properties.
    void deleteProfile(const WString& name);
    void getNames(NAME_LIST& names) const;  ///< in their order; appended
    Bool hasName(const WString& name) const { return m_users.contains(name); }
    /// The number of the current player, eight digits or more. Throws the plain string "ProfileID error." without one.
    String getProfileID() const;
    void saveHeaders();   ///< the list, if it has changed; without any player its file goes
    void saveAllProps();  ///< the current player's properties, if any has changed since they were read or written

    /// Nothing happens for an unknown type and for a text that is no value of its type.
    static void setProperty(const String& type_name, const String& name, const WString& value) {
        Properties::set(type_name, name, value);
    }
    static std::map<String, Int>& getInts() { return Properties::getInts(); }
    static std::map<String, Bool>& getBools() { return Properties::getBools(); }

private:
    void load();
    void loadHeaders(const iXML& list);
    void loadProps();
    void resetProps();
    void createProfile();
    Bool isTaken(UInt id) const;
    void skipUsedNumbers();
    String getPropsPath() const;

    Bool m_now_playing = false;
    WString m_current_user;
    UInt m_next_id = 1;
    std::map<WString, UInt> m_users;
    Bool m_headers_dirty = false;
    WString m_saved_props;  ///< the document as it was read or written last
};

}  // namespace Engine
