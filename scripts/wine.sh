#!/usr/bin/env bash
# Runs a program for Windows under Wine, in this project's own Wine folder.
#
#   scripts/wine.sh PROGRAM [ARGUMENT]...
#
# Wine's services inherit the output of the first program, and a reader of that output would wait for
# them. So the services are started here before the program, without output; the lock lets only one of
# several callers do it.
set -euo pipefail
# Debian's wine64 package puts no command into the search path.
PATH=$PATH:/usr/lib/wine
export WINEPREFIX=${XDG_CACHE_HOME:-$HOME/.cache}/querypackage/wine
# Report a missing DLL, and do not wait for a debugger after a crash.
export WINEDEBUG=${WINEDEBUG:--all,err+module}
export WINEDLLOVERRIDES="winedbg.exe=d;mscoree=d;mshtml=d"
export LC_ALL=C.UTF-8

mkdir -p "$WINEPREFIX"
(
  flock 9
  # Fails at once if the server already runs.
  if wineserver64 -p60 9>&-; then wine64 wineboot 9>&-; fi
) 9>"$WINEPREFIX/.lock" </dev/null >/dev/null 2>&1

exec wine64 "$@"
