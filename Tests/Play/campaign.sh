#!/usr/bin/env bash
# campaign.sh DIR: a new player goes through the first three levels in a real window on a display of its own, by pointer and
# keys: a golden flag, a silver one, a blue one (he lets time pass first). He begins the fourth level, closes the window, starts
# again and finds it as he left it. Takes 25 minutes; leaves pictures of each station in DIR for looking at. Fails if a flag is
# another one, or if the fourth level is not found again.
source "$(dirname "$0")/hand.sh"
scripts=$(dirname "$0")

# What the profile says: KEY
property() { iconv -f UTF-16 -t UTF-8 "$home/brindle/profiles/00000001.xml" | grep -o "Name=\"$1\" Val=\"[^\"]*" | cut -d"\"" -f4; }
# What the fourth level was left with: men, roads of the player.
left_behind() {
  "$tool" --data "$(dirname "$game")/Data" --home "$home/brindle" --profile Anna --until 0 --report "$home/left.json" || fail "the game does not start"
  grep -c '"goal"' "$home/left.json"; grep -c '"player_connected": true' "$home/left.json"
}

# Goes on from a level that is won: NEXT X Y; there the bridge is when the map is scrolled to its right end.
go_on() {
  for _ in 1 2 3 4 5 6 7 8 9 10 11 12; do
    [ "$(property "LevelOpen$1")" = 1 ] && return
    at 798 300; sleep 1.5; click "$2" "$3"; sleep 6
  done
  fail "level $1 is not reached"
}

start; shot 01-logo; skip_logos
xdotool type --delay 60 "Anna"; sleep 0.5; shot 02-name; key Return 2; shot 03-main-menu
click 641 222; sleep 2; shot 04-lessons-skipped; click 492 355; shot 05-map-of-levels
click 250 420; sleep 6; shot 10-first-level
play_script 0 "$scripts/win0.script" 0 11-first-level
go_on 1 680 270; sleep 6; shot 20-second-level
play_script 1 "$scripts/win1.script" 95 21-second-level
go_on 2 693 300; sleep 6; shot 30-third-level
play_script 2 "$scripts/win2.script" 330 31-third-level
go_on 3 694 272; sleep 6; shot 40-fourth-level
head -12 "$scripts/win3.script" >"$home/begin.script"
play_script 3 "$home/begin.script" 0 41-fourth-level; sleep 12; shot 42-fourth-level-begun
wmctrl -c Brindle; ended
flags="$(property LevelFlag0) $(property LevelFlag1) $(property LevelFlag2)"
[ "$flags" = "2 $((1 << 2)) $((3 << 4))" ] || fail "the flags are $flags"  # two bits for each bridge of the campaign
begun=$(left_behind)

start; skip_logos; shot 50-main-menu-again; click 641 222; sleep 2; shot 51-map-of-levels
click 672 402; sleep 6; shot 52-fourth-level-again
wmctrl -c Brindle; ended
[ "$(left_behind)" = "$begun" ] || fail "the fourth level is not as it was left"
echo "campaign.sh: played; pictures are in $out"
