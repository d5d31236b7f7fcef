#!/usr/bin/env bash
# Runs a program for Windows under Wine, in a Wine folder of this project's own.
#
#   scripts/wine.sh PROGRAM [ARGUMENT]...
#
# Wine's services inherit the output of whichever program comes first, and whoever reads that output
# to its end would wait for them. So the services are started here, with no output, before the
# program; the lock lets one of several callers do it.
set -euo pipefail
# Debian's wine64 package alone puts no command into the search path.
PATH=$PATH:/usr/lib/wine
export WINEPREFIX=${XDG_CACHE_HOME:-$HOME/.cache}/querypackage/wine
# A missing DLL is worth a line; a crash must not wait for a debugger.
export WINEDEBUG=${WINEDEBUG:--all,err+module}
export WINEDLLOVERRIDES="winedbg.exe=d;mscoree=d;mshtml=d"
export LC_ALL=C.UTF-8

mkdir -p "$WINEPREFIX"
(
  flock 9
  # Fails at once where the server already runs.
  if wineserver64 -p60 9>&-; then wine64 wineboot 9>&-; fi
) 9>"$WINEPREFIX/.lock" </dev/null >/dev/null 2>&1

exec wine64 "$@"
