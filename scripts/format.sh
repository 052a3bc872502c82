#!/usr/bin/env bash
# Brings every source file into the project's format; with --check it only tells which ones are not.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
install_packages clang-format

mapfile -t files < <(git ls-files '*.cpp' '*.h')
if [ "${1:-}" = "--check" ]; then
  clang-format --dry-run --Werror "${files[@]}"
else
  clang-format -i "${files[@]}"
fi
