#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test. `./test.sh PRESET` does so with another preset of
# CMakePresets.json (debug, sanitize, clang); the default is release.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/packages.sh

preset="${1:-release}"
# shellcheck disable=SC2086
install_packages $PACKAGES_BUILD $PACKAGES_RUN $PACKAGES_TEST
cmake --preset "$preset" -DBRINDLE_TESTS=ON >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)"
