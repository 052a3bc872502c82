#!/usr/bin/env bash
# Installs what is missing, builds the game and starts it. Without a display it plays off-screen and leaves pictures of
# what it saw in out/.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/packages.sh

# shellcheck disable=SC2086
install_packages $PACKAGES_BUILD $PACKAGES_RUN nlohmann-json3-dev
cmake --preset release -DBRINDLE_TESTS=OFF >/dev/null
cmake --build --preset release --target brindle tour simulate

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/release/brindle
fi
echo "There is no display: the game is played off-screen."
build/release/tour out
# The first level, won by clicks
sort -s -n -k 1,1 Tests/Play/win0.script Tests/Play/win0.shots | grep -v '^#' >out/win0.script
build/release/Tools/simulate --draw --data Data --level 0 --until 300 --script out/win0.script --report out/win0.json
ls out/3*.png
