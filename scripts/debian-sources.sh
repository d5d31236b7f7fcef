#!/usr/bin/env bash
# Downloads the files of Debian source packages without unpacking them.
#
#   scripts/debian-sources.sh FOLDER SOURCE[=VERSION]...
#
# apt works in a separate folder, without root's rights: a machine's lists often lack the sources.
set -euo pipefail
folder=$1
shift
apt=$(mktemp -d)
trap 'rm -rf "$apt"' EXIT
mkdir -p "$folder" "$apt/sources" "$apt/lists/partial" "$apt/cache/archives/partial"

for file in /etc/apt/sources.list.d/*.sources; do
  [ ! -f "$file" ] || sed 's/^Types:.*/Types: deb-src/' "$file" >"$apt/sources/${file##*/}"
done
# apt reads no other endings, so the main list becomes one of the others.
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
  [ ! -f "$file" ] || sed -nE 's/^deb(-src)?[[:space:]]+/deb-src /p' "$file" \
    >"$apt/sources/$(basename "$file" .list)-main.list"
done
options=(-q -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$apt/sources"
         -o "Dir::State::lists=$apt/lists" -o "Dir::Cache=$apt/cache" -o APT::Sandbox::User=root)
{
  apt-get "${options[@]}" update
  cd "$folder"
  apt-get "${options[@]}" source --download-only "$@"
} >&2
