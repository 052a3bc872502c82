#pragma once

#include <map>

#include "Engine/Ui/View.h"
#include "Engine/core/Singleton.h"
#include "Game/Types.h"
#include "Game/Ui/LevelHead.h"
#include "Game/Ui/SaveFile.h"

/// A game of one player: how he left each level that he entered. And the flow of the program around it, from the start
/// to the main menu, and from there to the map of levels and back.
///
/// cPreload ends in onProfileExist() or onCreateNewProfile(); both load what the main menu needs and come out there,
/// the latter by way of the player's name. The game itself lives from the menu's "play" to the way back to it.
class cGame : public Engine::cView, public Engine::cSingleton<cGame> {
public:
    static constexpr UInt product_count = 34;

    /// Sets itself up from "Game.xml" (the keys of a view) and loads what the map of levels needs; the map comes then.
    /// @param no_save  nothing is read from or written to the player's files
    cGame(cView* parent, Bool no_save);

    cLevelState* getSavedLevel(Int level);  ///< null for one that was never left
    const cLevelState* getSavedLevel(Int level) const { return const_cast<cGame*>(this)->getSavedLevel(level); }
    cLevelState* createSavedLevel(Int level);  ///< an empty one
    virtual Bool isNoSave() const { return m_no_save; }
    virtual void setNoSave(Bool no_save) { m_no_save = no_save; }
    /// Brings what this game has come to to the disk: the player's properties, then his save file. A disk that does not
    /// take it is told to him, once until it does again; what was saved before is still there then.
    void saveLevels();
    /// The program ends: the level in play is saved as well, unless the campaign is over.
    void saveAtExit();
    /// A saved level that can't be entered is put aside, into "<player>.level<n>.damaged": it begins anew the next
    /// time.
    void dropSavedLevel(Int level);

    /// Enters the values of a new player: "CurrentLevel" -1, "LevelFlag<n>" 0 for each level of "LevelMap.lvl",
    /// "Product<n>" 0 for each product but those of the child tag "StartProducts" of "Game.xml" (a child with an "id"
    /// for each), which he owns from the beginning; no award, no hint. cProfile calls it before it reads a player's own
    /// values.
    static void onInitProfile();

    /// The player's awards, before there is a game of his.
    static void loadAwards();
    /// What the player has come to that belongs to no level. Lives as long as the program, like the player's
    /// properties.
    static sProgress& getProgress();

    static Bool isLevelSaved(Int level);  ///< was it left once?
    /// How it was left. Nothing is known of one that never was, or whose record is damaged: who enters it is told.
    static sLevelHead readLevelHead(Int level);
    static Bool isLevelOpen(Int level);
    static void openLevel(Int level);  ///< on the map of levels, for good

    /// The best flag, an eMark, that the player has won at a bridge of a level: the record of a level that is played
    /// all over forgets it. Bridges count from 0, those beyond the first kept_flag_count are not kept. Two bits each of
    /// "LevelFlag<n>".
    static constexpr Int kept_flag_count = 15;
    static Int getKeptFlag(Int level, Int bridge);
    static void keepFlag(Int level, Int bridge, Int mark);  ///< if it is better than what is kept

    static void onProfileExist();      ///< the last player is known and goes on
    static void runProfileExist();     ///< the main menu
    static void onCreateNewProfile();  ///< nobody is known; asks for a name
    static void onNewProfileCreated();
    static void onGameStarted();     ///< the map of levels
    static void onEndLastComics();   ///< the campaign is over; the player may go on playing
    static void leaveForMainMenu();  ///< the game ends, the main menu comes

    /// The screen that asks for a new player's name, over the fixed background.
    static void askForName();

private:
    static void giveStartProducts();
    void loadLevels();

    std::map<Int, cLevelState> m_levels;  ///< by their numbers
    Bool m_finished = false;              ///< the campaign is over
    Bool m_save_failed = false;           ///< the player knows
    Bool m_no_save;
};
