#pragma once

#include <map>
#include <vector>

#include "Game/Types.h"
#include "Game/Ui/LevelState.h"
#include "Game/Ui/Progress.h"

/// What a player's save file holds.
struct sSave {
    sProgress progress;
    std::vector<Int> products;          ///< how many of each he owns
    std::map<Int, cLevelState> levels;  ///< those that he has entered, by their numbers
};

/// The save file of one player, and what keeps it from being lost.
///
/// It is one stream of 32-bit numbers without any head: the awards (a count, then 24 bytes each), 61 hints, the
/// products (a count, then each), the levels (a count; of each its number, a count of bytes, and those).
///
/// A file is written whole or not at all (AtomicFile.h), and the one that it takes the place of is kept beside it with
/// ".bak" behind its name. A file that can't be read is kept with ".damaged" behind its name, and the one before it
/// takes its place. What happened is noted in the log "saves".
class cSaveFile {
public:
    enum eFound {
        none,  ///< there is no save
        good,
        restored,  ///< it is damaged or gone; what was read is the one before it, which has taken its place
        lost       ///< it is damaged, and there is no good one before it
    };

    /// @param path  in the tree of files
    explicit cSaveFile(String path) : m_path(std::move(path)) {}

    /// Reads the save. Without a good one nothing of it is changed.
    eFound read(sSave& save) const;
    /// The same without a change to any file; false for a save that is not there or damaged.
    Bool readOnly(sSave& save) const;
    /// Nothing happens if the file holds just that. Throws the message of the system if the disk does not take it; what
    /// was there before is still there then.
    void write(sSave& save) const;
    /// Leaves the record of a level beside the save, in "<player>.level<n>.damaged". Throws the same.
    void keepLevelAside(const cLevelState& level) const;

    /// The stream itself. Reading gives back what is wrong with it; the save is whole only if that is empty.
    static std::vector<char> toBytes(sSave& save);
    static String fromBytes(std::vector<char> bytes, sSave& save);

private:
    String m_path;
};

/// In a catch clause: the first line of the failure, with which it is dealt with.
String takeFailureLine();
/// Adds a line to the log "saves"; a disk that takes nothing is no reason to fail.
void noteInSaveLog(const String& text);
