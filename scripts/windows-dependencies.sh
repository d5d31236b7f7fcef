#!/usr/bin/env bash
# Builds the libraries that querypackage needs for Windows, once a machine, and prints the folder
# that they are in. What is printed beside that goes to standard error.
#
# Boost.Filesystem, TinyXML and Google Benchmark are built from the Debian sources of the very
# versions that are installed here for the native build, GoogleTest from its package of sources.
# Libraries of headers alone are the installed ones. The folder's name stands for all these
# versions, the compiler's, and this script's.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
project=cmake/windows-dependencies
toolchain=$PWD/cmake/MinGW.cmake
cache=${XDG_CACHE_HOME:-$HOME/.cache}/querypackage

# "name=version" of the source that an installed package is built from.
source_of() { dpkg-query -W -f='${source:Package}=${source:Version}\n' "$1" | sort -u; }

boost=$(source_of "$(dpkg-query -S /usr/include/boost/version.hpp | cut -d: -f1)")
tinyxml=$(source_of libtinyxml-dev)
benchmark=$(source_of libbenchmark-dev)
key=$({
  echo "$boost $tinyxml $benchmark $(source_of googletest)"
  dpkg-query -W g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev
  cat "scripts/${BASH_SOURCE[0]##*/}" "$project/CMakeLists.txt" "$toolchain"
} | sha256sum | cut -c1-16)
ready=$cache/windows-$key

unpack() {
  # Boost is large, and needed is one folder of it; Debian's patches do not concern Windows.
  mkdir "$work/boost"
  tar -xf "$work"/boost*.orig.tar.* -C "$work/boost" --strip-components=1 \
    --wildcards '*/libs/filesystem/src/*'
  dpkg-source --no-check -x "$work"/tinyxml_*.dsc "$work/tinyxml"
  dpkg-source --no-check -x "$work"/benchmark_*.dsc "$work/benchmark"
}

# Debian's headers, each library's alone: the folder above them is for Linux.
link_headers() {
  local library
  mkdir -p "$work/prefix/include"
  for library in boost fmt spdlog CLI nlohmann; do
    ln -s "/usr/include/$library" "$work/prefix/include/$library"
  done
}

build() {
  cmake -G Ninja -S "$project" -B "$work/build" -DCMAKE_BUILD_TYPE=Release \
    "-DCMAKE_TOOLCHAIN_FILE=$toolchain" "-DCMAKE_INSTALL_PREFIX=$work/prefix" \
    "-DSOURCES=$work" "-DBOOST_VERSION=$(sed -E 's/.*=([0-9.]+).*/\1/' <<<"$boost")"
  cmake --build "$work/build"
  cmake --install "$work/build" >/dev/null
}

mkdir -p "$cache"
(
  flock 9
  [ ! -d "$ready" ] || exit 0
  echo "building the libraries for Windows: $boost $tinyxml $benchmark"
  work=$(mktemp -d "$cache/windows-building.XXXXXX")
  trap 'rm -rf "$work"' EXIT
  scripts/debian-sources.sh "$work" "$boost" "$tinyxml" "$benchmark"
  unpack
  link_headers
  build
  mv "$work/prefix" "$ready"
) 9>"$cache/windows.lock" >&2
echo "$ready"
