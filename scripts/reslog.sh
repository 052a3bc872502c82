#!/bin/sh
# Writes Data/reslog_strategic.xml again: what the loading screen before the map of levels fetches, for the map and for all
# levels. Land and music are fetched by each level for itself. Needs build/release/Tools/datatool.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
datatool=${DATATOOL:-$root/build/release/Tools/datatool}
cd "$root/Data"
"$datatool" reslog . GameUI/Strategic/*.xml GameUI/*.xml GameLogic/*.xml Effects/*.xml Clouds/*.xml Land/tree_*.png \
    UI/GameMenu.xml UI/YesNo.xml GameStrings.xml YesNoStrings.xml >reslog_strategic.new
mv reslog_strategic.new reslog_strategic.xml
