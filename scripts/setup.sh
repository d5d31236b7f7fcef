#!/usr/bin/env bash
# Installs what building and testing needs from Debian's packages, as root or through sudo.
# What is there already costs nothing; everything that is printed goes to standard error.
#
#   scripts/setup.sh          what it takes to build
#   scripts/setup.sh test     and to run all tests and checks
#   scripts/setup.sh fuzz     and to fuzz; this takes Clang and its runtime libraries
set -euo pipefail

packages=(g++ cmake ninja-build libboost-filesystem-dev libtinyxml-dev libspdlog-dev libfmt-dev
          libcli11-dev nlohmann-json3-dev)
if [ "${1:-build}" = fuzz ]; then
  packages+=(clang libclang-rt-dev libgtest-dev libgmock-dev libboost-dev)
fi
if [ "${1:-build}" = test ]; then
  packages+=(valgrind libgtest-dev libgmock-dev libboost-dev libbenchmark-dev gcovr locales git
             clang-format clang-tidy cppcheck
             # Windows: the compilers, Wine, and what it takes to build libraries from Debian's sources.
             g++-mingw-w64-x86-64-posix clang wine64 dpkg-dev googletest)
fi

missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$state" = installed ] || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0

if [ "$(id -u)" -eq 0 ]; then as_root=(); else as_root=(sudo); fi
{
  echo "setup: installing ${missing[*]}"
  "${as_root[@]}" apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}"
} >&2
