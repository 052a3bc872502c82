#!/usr/bin/env bash
# build.sh DIR: builds the first two levels up in a real window on a display of its own, by pointer alone: roads dragged
# and clicked, a man bought, a mill built, worked and unloaded, a line of fences. Leaves pictures of each stage in DIR for
# looking at. Fails if the mill or the fences have not risen.
source "$(dirname "$0")/hand.sh"

"$(dirname "$game")/Tools/simulate" --data "$(dirname "$game")/Data" --level 0 --until 0 --home "$home/brindle" \
  --profile Anna --set LevelOpen1=true --report /dev/null || fail "no player could be made"

drag() { at "$1" "$2"; xdotool mousedown 1; sleep 0.2; at $((($1 + $3) / 2)) $((($2 + $4) / 2)); at "$3" "$4"; xdotool mouseup 1; sleep 0.5; }
buy_man() { click 688 22; }
leave() { key Escape; click 400 416; click 305 356; sleep 4; }
# The pictures must differ within that rectangle of the screen, where something has risen: BEFORE AFTER WIDTHxHEIGHT+X+Y
risen() {
  local changed
  changed=$(compare -metric AE -fuzz 15% "$out/$1.png[$3]" "$out/$2.png[$3]" null: 2>&1)
  [ "${changed%%[.e]*}" -gt 300 ] || fail "nothing has risen between $1 and $2"
}

start; skip_logos; click 641 222; sleep 2

# The first level: a mill.
click 250 420; sleep 7; shot 00-begins
drag 222 300 315 250; drag 222 300 255 405; shot 01-roads-ordered; sleep 14
click 355 207; buy_man; shot 02-stretch-and-man; sleep 14
click 395 165; sleep 20; shot 03-mill-stands
click 395 165; at 600 500; sleep 25; shot 04-load-lies
click 321 107; sleep 15; shot 05-load-fetched
leave

# The second one: a line of fences.
click 400 330; sleep 7; shot 10-begins
drag 207 212 302 180; click 522 165; buy_man; sleep 40; shot 11-roads
click 562 203; at 400 540; sleep 15; shot 12-fences-in-work; sleep 15; shot 13-fences-stand
leave

click 110 560; sleep 3; key Escape; at 240 395; at 260 405; at 440 420; at 350 420; at 312 420; press; ended
risen 02-stretch-and-man 03-mill-stands 80x80+595+300  # the mill
risen 11-roads 13-fences-stand 60x50+870+390           # the eastern fence and its tower
echo "build.sh: played; pictures are in $out"
