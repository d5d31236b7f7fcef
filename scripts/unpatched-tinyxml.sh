#!/usr/bin/env bash
# Puts the sources of TinyXML as their authors left them, without Debian's patches, into a folder.
# They are downloaded once a machine.
#
#   scripts/unpatched-tinyxml.sh FOLDER
set -euo pipefail
folder=$1
scripts=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
cache=${XDG_CACHE_HOME:-$HOME/.cache}/querypackage
ready=$cache/tinyxml-unpatched

mkdir -p "$cache" "$folder"
(
  flock 9
  [ ! -d "$ready" ] || exit 0
  work=$(mktemp -d "$cache/tinyxml-fetching.XXXXXX")
  trap 'rm -rf "$work"' EXIT
  "$scripts/debian-sources.sh" "$work" tinyxml
  mkdir "$work/unpacked"
  tar -xf "$work"/tinyxml_*.orig.tar.* -C "$work/unpacked" --strip-components=1
  mv "$work/unpacked" "$ready"
) 9>"$cache/tinyxml.lock"
cp "$ready"/tinyxml*.cpp "$ready"/tinyxml.h "$folder"
