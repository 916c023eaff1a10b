#!/usr/bin/env bash
# Builds and runs every test: a Release build with -Werror (g++), the same
# suite under AddressSanitizer + UndefinedBehaviorSanitizer, the benchmarks
# compiled (not timed), and a consumer project using add_subdirectory.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh"
jobs=$(nproc)

echo "== consumer project (add_subdirectory) =="
cmake -S "$root/tests/consumer" -B "$root/build/consumer" -G Ninja \
  -DTXCOMMON_SOURCE_DIR="$root" >/dev/null
cmake --build "$root/build/consumer" >/dev/null
"$root/build/consumer/consumer"

echo "== sanitizers (ASan + UBSan) =="
cmake -S "$root" -B "$root/build/sanitize" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DTXCOMMON_SANITIZE=ON -DTXCOMMON_WERROR=ON -DCMAKE_CXX_FLAGS=-O1 >/dev/null
cmake --build "$root/build/sanitize" -j "$jobs"
ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir "$root/build/sanitize" --output-on-failure -j "$jobs"

echo "== release (-Werror) =="
cmake -S "$root" -B "$root/build/release" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DTXCOMMON_WERROR=ON -DTXCOMMON_BUILD_BENCH=ON >/dev/null
cmake --build "$root/build/release" -j "$jobs"
cmake --build "$root/build/release" --target benchmarks -j "$jobs"
ctest --test-dir "$root/build/release" --output-on-failure -j "$jobs"
