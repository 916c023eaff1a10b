#!/usr/bin/env bash
# Builds txc and runs it: with no arguments the tour, else the subcommand.
#   scripts/txc.sh                      the tour
#   scripts/txc.sh date parse "1/15/90 10:30 EST"
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
cmake -S "$root" -B "$root/build/txc" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DTXCOMMON_BUILD_TESTS=OFF >/dev/null
cmake --build "$root/build/txc" --target txc >/dev/null
exec "$root/build/txc/tools/txc/txc" "$@"
