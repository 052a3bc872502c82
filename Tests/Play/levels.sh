#!/usr/bin/env bash
# levels.sh DIR: visits the levels of the game in a real window on a display of its own, by pointer and keys, and leaves
# pictures of each in DIR for looking at: rolling in, its men on their way, scrolled, under the menu. Fails if the game
# does not end when it is asked to.
source "$(dirname "$0")/hand.sh"

# A player to whom all levels are open.
"$(dirname "$game")/Tools/simulate" --data "$(dirname "$game")/Data" --level 0 --until 0 --home "$home/brindle" \
  --profile Anna --set LevelOpen1=true --set LevelOpen2=true --report /dev/null || fail "no player could be made"

nodes=("250 420" "400 330" "560 260")  # as Data/GameUI/Strategic/StrategicMap.xml places them
to_map_of_levels() { key Escape; click 400 416; click 305 356; sleep 4; }

start; skip_logos; shot 01-main-menu
click 641 222; sleep 2; shot 02-map-of-levels
for level in 0 1 2; do
  # shellcheck disable=SC2086
  at ${nodes[$level]}; press 1; shot "1$level-rolls-in"; sleep 4; shot "1$level-caravan"
  for second in 1 2 3 4; do sleep 0.6; shot "1$level-walk$second"; done
  sleep 6; at 797 300; sleep 2.5; at 400 300; sleep 0.7; shot "1$level-scrolled"
  key Escape; shot "1$level-menu"; key Escape
  to_map_of_levels; shot "1$level-left"
done
click 110 560; sleep 3; shot 20-main-menu-again
key Escape; at 240 395; at 260 405; at 440 420; at 350 420; at 312 420; press; ended
