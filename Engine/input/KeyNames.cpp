#include "Engine/input/KeyNames.h"

namespace Engine {

std::map<eControl, String> makeKeyNames() {
    // clang-format off
    return {
        {1, "Esc"}, {2, "1"}, {3, "2"}, {4, "3"}, {5, "4"}, {6, "5"}, {7, "6"}, {8, "7"}, {9, "8"}, {10, "9"}, {11, "0"},
        {12, "-"}, {13, "="}, {14, "Back"}, {15, "Tab"}, {16, "Q"}, {17, "W"}, {18, "E"}, {19, "R"}, {20, "T"}, {21, "Y"},
        {22, "U"}, {23, "I"}, {24, "O"}, {25, "P"}, {26, "["}, {27, "]"}, {28, "Enter"}, {29, "L Ctr"}, {30, "A"},
        {31, "S"}, {32, "D"}, {33, "F"}, {34, "G"}, {35, "H"}, {36, "J"}, {37, "K"}, {38, "L"}, {39, ";"}, {40, "'"},
        {41, "`"}, {42, "L Shift"}, {43, "\\"}, {44, "Z"}, {45, "X"}, {46, "C"}, {47, "V"}, {48, "B"}, {49, "N"},
        {50, "M"}, {51, ","}, {52, "."}, {53, "/"}, {54, "R Shift"}, {55, "*"}, {56, "L Menu"}, {57, "Space"},
        {58, "Caps Lock"}, {59, "F1"}, {60, "F2"}, {61, "F3"}, {62, "F4"}, {63, "F5"}, {64, "F6"}, {65, "F7"}, {66, "F8"},
        {67, "F9"}, {68, "F10"}, {69, "Num Lock"}, {70, "Scrol"}, {71, "NumPad 7"}, {72, "NumPad 8"}, {73, "NumPad 9"},
        {74, "NumPad -"}, {75, "NumPad 4"}, {76, "NumPad 5"}, {77, "NumPad 6"}, {78, "NumPad +"}, {79, "NumPad 1"},
        {80, "NumPad 2"}, {81, "NumPad 3"}, {82, "NumPad 0"}, {83, "NumPad ."}, {86, "OEM_102"}, {87, "F11"}, {88, "F12"},
        {100, "F13"}, {101, "F14"}, {102, "F15"}, {112, "KANA"}, {115, "Abnt C1"}, {121, "Convert"}, {123, "No Convert"},
        {125, "Yen"}, {126, "Abnt C2"}, {141, "NumPad ="}, {144, "Pre Vtrack"}, {145, "At"}, {146, "Colon"},
        {147, "Underline"}, {148, "Kanji"}, {149, "Stop"}, {150, "Ax"}, {151, "Unlabeled"}, {153, "Next Track"},
        {156, "NumPad Enter"}, {157, "R Ctr"}, {160, "Mute"}, {161, "Calculator"}, {162, "PlayPause"}, {164, "MediaStop"},
        {174, "Volume Down"}, {176, "Volume Up"}, {178, "Webhome"}, {179, "NumPad ."}, {181, "NumPad /"}, {183, "SYSRQ"},
        {184, "R Alt"}, {197, "Pause"}, {199, "Home"}, {200, "Up"}, {201, "PgUp"}, {203, "Left"}, {205, "Right"},
        {207, "End"}, {208, "Down"}, {209, "PgDn"}, {210, "Insert"}, {211, "Delete"}, {219, "L Win"}, {220, "R Win"},
        {221, "Menu"}, {222, "Power"}, {223, "Sleep"}, {227, "Wake"}, {229, "WebSearch"}, {230, "WebFavorites"},
        {231, "WebRefresh"}, {232, "WebStop"}, {233, "WebForward"}, {234, "WebBack"}, {235, "MyComputer"}, {236, "Mail"},
        {237, "MediaSelect"},
    };
    // clang-format on
}

}  // namespace Engine
