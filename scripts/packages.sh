#!/usr/bin/env bash
# Debian packages by purpose, and one function that installs what is missing of them. Sourced by the other scripts.

PACKAGES_BUILD="g++ cmake ninja-build ccache pkg-config
  libexpat1-dev libminizip-dev zlib1g-dev libpng-dev libjpeg62-turbo-dev libstb-dev
  libsdl2-dev libepoxy-dev libglm-dev libopenal-dev libsndfile1-dev
  libfreetype-dev libharfbuzz-dev libfribidi-dev"
PACKAGES_RUN="libgl1 libegl1 libgl1-mesa-dri"
PACKAGES_TEST="libgtest-dev nlohmann-json3-dev clang libclang-rt-14-dev clang-format clang-tidy"
PACKAGES_BENCHMARK="libbenchmark-dev libxml2-dev libzip-dev libphysfs-dev libsfml-dev fonts-vollkorn
  libboost-graph-dev liblemon-dev"

# install_packages NAME...: installs those that are not there; root, or a user with sudo.
install_packages() {
  local missing=() name
  for name in "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
    >/dev/null
}
