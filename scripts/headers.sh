#!/usr/bin/env bash
# Compiles each header by itself, so that none leans on what others include before it. The sources
# are compiled without precompiled headers in the build of the preset asan.
#
#   scripts/headers.sh [BUILD]    BUILD: a configured build folder, build/release by default
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/release}
[ -f "$build/compile_commands.json" ] || cmake --preset release >&2

exec python3 -B scripts/headers.py "$build"
