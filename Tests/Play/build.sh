#!/usr/bin/env bash
# build.sh DIR: builds the first three levels up in a real window on a display of its own, by pointer alone: roads drawn and
# clicked, men bought, mills built, worked, unloaded and improved, a plan bought, a line of fences, a bridge over the river.
# Takes 11 minutes; leaves pictures of each stage in DIR for looking at. Fails if anything of that has not risen.
source "$(dirname "$0")/hand.sh"
scripts=$(dirname "$0")
nodes=("250 420" "400 330" "560 260")  # as Data/GameUI/Strategic/StrategicMap.xml places them

simulate() { "$tool" --data "$(dirname "$game")/Data" --home "$home/brindle" --profile Anna --until 0 "$@"; }
simulate --level 0 --set LevelOpen1=true --set LevelOpen2=true --report /dev/null || fail "no player could be made"

# What must stand in a level as it was left: LEVEL THING:LEVEL...; a thing is a connected building's type, fence or bridge.
expect() {
  simulate --level "$1" --report "$home/left.json" || fail "the game does not start"
  /usr/bin/env python3 - "$home/left.json" "${@:2}" <<'CHECK' || fail "level $1: not all has risen"
import json, sys
report = json.load(open(sys.argv[1]))
stands = {f"{b['type']}:{b['level']}" for b in report["buildings"] if b["player_connected"]}
stands |= {f"fence:{f['level']}" for f in report["fences"] if not f["enemy"]} | {f"bridge:{b['level']}" for b in report["bridge_roads"]}
missing = set(sys.argv[2:]) - stands
print("missing:", *sorted(missing)) if missing else None
sys.exit(bool(missing))
CHECK
}

start; skip_logos; click 641 222; sleep 2
for level in 0 1 2; do
  # shellcheck disable=SC2086
  click ${nodes[$level]}; sleep 7; shot "${level}0-begins"
  play_script $level "$scripts/build$level.script" 0 "${level}1-stage"
  sleep 12; shot "${level}2-built"
  key Escape; click 400 416; click 305 356; sleep 4
done
click 110 560; sleep 3; key Escape; at 240 395; at 260 405; at 440 420; at 350 420; at 312 420; press; ended
expect 0 13:1 9:1
expect 1 12:1 fence:1
expect 2 13:2 11:1 bridge:1
echo "build.sh: played; pictures are in $out"
