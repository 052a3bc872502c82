#pragma once

#include "Game/Types.h"

/// The flow of the program from its start to the main menu, and what a new player begins with.
///
/// cPreload ends in onProfileExist() or onCreateNewProfile(); both load what the main menu needs and come out there,
/// the latter by way of the player's name.
class cGame {
public:
    static constexpr UInt product_count = 34;

    cGame() = delete;

    /// Enters the values of a new player: "CurrentLevel" -1, "LevelFlag<n>" 0 for each level of "LevelMap.lvl",
    /// "Product<n>" 0 for each product. cProfile calls it before it reads a player's own values.
    static void onInitProfile();

    static void onProfileExist();      ///< the last player is known and goes on
    static void runProfileExist();     ///< the main menu
    static void onCreateNewProfile();  ///< nobody is known; asks for a name
    static void onNewProfileCreated();

    /// The screen that asks for a new player's name, over the fixed background.
    static void askForName();
};
