#!/usr/bin/env bash
# kill_saves.sh [TIMES]: plays a level that was finished, saves it after every frame, is killed in the middle of that, and
# looks at what the next start finds; 500 times. Fails if a save was damaged, if the level is no longer finished, or if
# the clock of its bridge or the number of the player's plans is behind what was found before. Needs the release build.
set -uo pipefail
times=${1:-500}
build="$(cd "$(dirname "$0")/../.." && pwd)/build/release"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
save=home/profiles/00000001.save

fail() { echo "kill_saves.sh: $1" >&2; exit 1; }
program=("$build/Tools/simulate" --data "$build/Data" --level 0 --home home)
simulate() { "${program[@]}" "$@"; }
number() { tr -d ' \n' <found.json | grep -o "\"$1\":[0-9.]*" | head -n 1 | grep -o '[0-9.]*$'; }
plans() { tr -d ' \n' <found.json | grep -o '"products":\[[^]]*' | grep -o '[0-9]*$'; }  # how many of the last one
behind() { awk "BEGIN { exit !($1 < $2) }"; }

echo "1 save" >once.txt
for i in $(seq 0 2999); do printf '%d.%02d save\n' $((i / 50)) $((i % 50 * 2)); done >always.txt
simulate --until 1.1 --script once.txt --report /dev/null || fail "no player could be made"
# The first field of the record tells that the level is finished: behind awards, hints, products, and the level's head.
printf '\001' | dd of=$save bs=1 seek=$((4 + 16 * 24 + 61 * 4 + 4 + 34 * 4 + 4 + 8)) conv=notrunc status=none

last_plans=0 last_clock=0 arrived=0
for round in $(seq 1 "$times"); do
  "${program[@]}" --until 60 --script always.txt --report /dev/null >/dev/null 2>&1 & pid=$!
  sleep "0.$(printf %03d $((40 + RANDOM % 140)))"
  { kill -9 $pid && wait $pid; } 2>/dev/null
  simulate --until 0 --report found.json || fail "round $round: the game does not start"
  tr -d ' \n' <found.json | grep -q '"completed":true' || fail "round $round: the level is no longer finished"
  behind "$(plans)" $last_plans && fail "round $round: there are $(plans) plans, and were $last_plans"
  behind "$(number elapsed)" $last_clock && fail "round $round: the clock is at $(number elapsed), and was at $last_clock"
  [ -e saves.log ] && fail "round $round: $(head -n 5 saves.log)"
  [ -e $save.damaged ] && fail "round $round: a save was damaged"
  [ "$(plans) $(number elapsed)" != "$last_plans $last_clock" ] && arrived=$((arrived + 1))
  last_plans=$(plans) last_clock=$(number elapsed)
done
echo "kill_saves.sh: $times kills, $arrived of them while it was saved; nothing was lost"
