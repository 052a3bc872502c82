#!/usr/bin/env bash
# trace.sh SIMULATE DATA: fails if what a script's hand did, written down and played again, comes to another level, or if the
# hand left the screen.
set -euo pipefail
scripts=$(dirname "$0")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

play() { "$1" --data "$2" --level 2 --until 200 "${@:3}"; }
play "$1" "$2" --script "$scripts/win2.script" --trace "$work/hand.script" --report "$work/script.json"
play "$1" "$2" --script "$work/hand.script" --report "$work/hand.json"
cmp <(grep '"hash"' "$work/script.json") <(grep '"hash"' "$work/hand.json")
grep -q '^[0-9.]* move 799 ' "$work/hand.script"  # it has scrolled
! awk '$2 == "move" && ($3 < 0 || $3 > 799 || $4 < 0 || $4 > 599)' "$work/hand.script" | grep .
