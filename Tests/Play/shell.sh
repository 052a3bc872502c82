#!/usr/bin/env bash
# shell.sh DIR: plays the first and the second run of the game in a real window on a display of its own, by pointer and
# keys, and leaves a picture of each screen in DIR for looking at. Fails if the game does not end when it is asked to, or
# forgets its player, a volume or full screen.
source "$(dirname "$0")/hand.sh"

# The first run: a name, and a look at everything.
start; shot 01-logo; skip_logos; shot 02-name-asked
xdotool type --delay 60 "Anna"; sleep 0.5; shot 03-name-typed; key Return 2; shot 04-main-menu
click 641 285; at 595 242; xdotool mousedown 1; at 500 242; at 420 244; shot 05-dragging-a-volume; xdotool mouseup 1
at 374 366; sleep 1; shot 06-tip
press 0.2; full_screen; shot 07-full-screen
alt_enter; windowed; click 400 444
click 641 411; shot 08-credits; click 400 495
click 641 348; for _ in 1 2 3 4; do key BackSpace 0.1; done
xdotool type --delay 80 "Bob & Co"; sleep 0.5; shot 09-new-player; key Return; shot 10-second-player
click 641 348; click 370 335; shot 11-player-chosen; click 228 507; shot 12-delete-asked; click 305 356; shot 13-deleted
click 546 507
key Escape; shot 14-exit-asked; at 240 395; at 260 405; shot 15-yes-has-fled; click 505 420
click 641 285; click 374 366; full_screen; key Escape; shot 16-full-screen-menu
key Escape; at 440 420; at 350 420; at 312 420; shot 17-yes-is-caught; press; ended

# The second run: all is as it was.
iconv -f UTF-16 -t UTF-8 "$home/brindle/profiles/profiles.xml" | grep -q 'CurrentUser="Anna"' || fail "the player is lost"
settings=$(iconv -f UTF-16 -t UTF-8 "$home/brindle/sys/settings.xml")
grep -q 'Sound="3[0-9]"' <<<"$settings" || fail "the volume is lost"
grep -q 'fullscreen="1"' <<<"$settings" || fail "full screen is lost"
start; full_screen; skip_logos; shot 18-known-player; click 641 285; shot 19-options-kept
key Escape; wmctrl -c Brindle; ended
echo "shell.sh: played; pictures are in $out"
