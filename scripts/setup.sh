#!/usr/bin/env bash
# Installs what building and testing needs from Debian's packages, as root or through sudo.
# What is there already costs nothing; everything that is printed goes to standard error.
#
#   scripts/setup.sh [GROUP]...
#
#   build      what it takes to build the library and the program; always included
#   test       to build and run the native tests and the benchmarks
#   check      to format and analyze the sources
#   sanitize   to test under sanitizers, built with Clang
#   coverage   to measure line coverage
#   windows    to build for Windows and test under Wine
#   fuzz       to fuzz
#   all        all of these
set -euo pipefail

build=(g++ cmake ninja-build libboost-filesystem-dev libtinyxml-dev libspdlog-dev libfmt-dev
       libcli11-dev nlohmann-json3-dev)
# dpkg-dev is for TinyXML's sources without Debian's patches.
tests=(libgtest-dev libgmock-dev libboost-dev locales git python3
       python3-jsonschema dpkg-dev libbenchmark-dev valgrind pkg-config)
sanitize=(clang libclang-rt-dev lld)
windows=(g++-mingw-w64-x86-64-posix clang wine64 googletest)
check=(clang-format clang-tidy cppcheck shellcheck)

packages=("${build[@]}")
for group; do
  case $group in
    build) ;;
    test) packages+=("${tests[@]}") ;;
    check) packages+=("${tests[@]}" "${sanitize[@]}" "${check[@]}") ;;
    sanitize | fuzz) packages+=("${tests[@]}" "${sanitize[@]}") ;;
    coverage) packages+=("${tests[@]}" gcovr) ;;
    windows) packages+=("${tests[@]}" "${windows[@]}") ;;
    all) packages+=("${tests[@]}" "${sanitize[@]}" "${check[@]}" gcovr "${windows[@]}") ;;
    *)
      echo "setup: there is no group $group" >&2
      exit 2
      ;;
  esac
done

missing=()
for package in $(printf '%s\n' "${packages[@]}" | sort -u); do
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
