#!/usr/bin/env bash
# Builds everything with Clang, warnings being errors, then runs clang-tidy over the sources that changed since the
# commit given (all sources without one).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
# shellcheck disable=SC2086
install_packages $PACKAGES_BUILD $PACKAGES_TEST

cmake --preset clang -DBRINDLE_TESTS=ON -DCMAKE_CXX_FLAGS=-Werror >/dev/null
cmake --build --preset clang

if [ $# -gt 0 ]; then
  mapfile -t files < <(git diff --name-only --diff-filter=d "$1" -- 'Engine/*.cpp' 'Game/*.cpp' 'Tools/*.cpp')
else
  mapfile -t files < <(git ls-files 'Engine/*.cpp' 'Game/*.cpp' 'Tools/*.cpp')
fi
[ ${#files[@]} -eq 0 ] && exit 0
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/clang --quiet
