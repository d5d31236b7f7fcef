#!/usr/bin/env bash
# Builds the command line and queries the sample repository for one of its machines. With arguments,
# they go to 'querypackage-cli query' instead. What building prints goes to standard error.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD
cd - >/dev/null

"$root/scripts/setup.sh" build
{
  (cd "$root" &&
   cmake --preset release -DQUERYPACKAGE_BUILD_TESTS=OFF -DQUERYPACKAGE_BUILD_EXAMPLES=OFF \
     -DQUERYPACKAGE_BUILD_BENCHMARKS=OFF \
     -B build/query &&
   cmake --build build/query --target querypackage-cli)
} >&2

if [ "$#" -eq 0 ]; then
  set -- "$root/examples/repository" --machine-type 1234 --os 10 --arch 9
fi
exec "$root/build/query/src/app/querypackage-cli/querypackage-cli" query "$@"
