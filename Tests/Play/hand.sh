# Sourced by the scripts beside it: starts the game in a real window on a display of its own and plays it by pointer and
# keys. The script's one argument is the directory that pictures are left in.
#
# Needs the release build and the packages xvfb openbox xdotool wmctrl imagemagick.
script=$(basename "$0")
set -uo pipefail
[ $# -eq 1 ] || { echo "usage: $script DIR" >&2; exit 2; }
game="$(cd "$(dirname "$0")/../.." && pwd)/build/release/brindle"
out=$(mkdir -p "$1" && cd "$1" && pwd)
home=$(mktemp -d)
export DISPLAY=:$((100 + $$ % 900)) XDG_DATA_HOME="$home" SDL_AUDIODRIVER=dummy
title_bar=21  # openbox's, which xdotool counts twice

Xvfb $DISPLAY -screen 0 1280x960x24 >/dev/null 2>&1 & display=$!
sleep 1
openbox >/dev/null 2>&1 & manager=$!
sleep 1
trap 'kill $manager $display; rm -rf "$home"' EXIT

fail() { echo "$script: $1" >&2; exit 1; }
shot() { import -window root "$out/$1.png"; }
find_window() {
  eval "$(xdotool getwindowgeometry --shell "$(xdotool search --name '^Brindle$' | tail -1)")"
  left=$X top=$((Y - title_bar)) scale=100
}
full_screen() { left=0 top=0 scale=160; sleep 1.5; }  # 1280 x 960
windowed() { sleep 1.5; find_window; }
at() { xdotool mousemove $((left + $1 * scale / 100)) $((top + $2 * scale / 100)); sleep 0.35; }
press() { xdotool mousedown 1; sleep 0.15; xdotool mouseup 1; sleep "${1:-1.2}"; }
click() { at "$1" "$2"; press; }
key() { xdotool key "$1"; sleep "${2:-1.2}"; }
alt_enter() { xdotool keydown alt key Return keyup alt; }
start() {
  "$game" & pid=$!
  sleep 2.5
  find_window
}
tool="$(dirname "$game")/Tools/simulate"
# Plays a level by one of the scripts beside this one, as it is entered anew: LEVEL SCRIPT SECONDS PICTURES. It waits that
# long first, and takes a picture every half minute. The script is played without a screen before, which tells where the
# pointer goes. What came too fast for a screen is played a
# little later. The one key that is played is Escape.
play_script() {
  "$tool" --data "$(dirname "$game")/Data" --level "$1" --until 1000 --script "$2" --trace "$home/hand.txt" \
    --report /dev/null || fail "$2 can't be played"
  awk -v wait="$3" -v left="$left" -v top="$top" '
    function at(time) { if (time < now + 0.05) time = now + 0.05; printf "sleep %.3f\n", time - now; now = time }
    { at($1 + wait) }
    $2 == "move" { printf "mousemove %d %d\n", left + $3, top + $4 }
    $2 == "press" { print "mousedown 1" }
    $2 == "release" { print "mouseup 1" }
    $2 == "key" { print ($4 == "press" ? "keydown" : "keyup"), "Escape" }' "$home/hand.txt" >"$home/hand.xdo"
  xdotool - <"$home/hand.xdo" & local hand=$! count=0
  while sleep 30 && kill -0 $hand 2>/dev/null; do shot "$4-$((count += 1))"; done
  wait $hand
}
skip_logos() { for _ in 1 2 3; do key space 0.6; done; sleep 2.5; }
ended() {
  for _ in 1 2 3 4 5 6; do kill -0 $pid 2>/dev/null || return 0; sleep 0.5; done
  kill -9 $pid
  fail "the game did not end"
}

