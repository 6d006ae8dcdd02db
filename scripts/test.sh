#!/usr/bin/env bash
# Sets up a fresh machine and runs every test: GCC 12 and Clang 14 builds, the whole suite
# again under AddressSanitizer and UndefinedBehaviorSanitizer, then each fuzzer for a short while.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh

for preset in gcc clang asan; do
  echo "== $preset: configure, build, test"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  ctest --preset "$preset"
done

echo "== fuzz: short runs of every fuzzer"
bash scripts/fuzz.sh "${VORNIX_FUZZ_SECONDS:-20}"
