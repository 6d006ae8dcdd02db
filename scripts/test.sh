#!/usr/bin/env bash
# Sets up a fresh machine and runs every test: the GCC 12 and Clang 14 builds, the whole suite again
# under AddressSanitizer and UndefinedBehaviorSanitizer, a build made the way a packager makes it
# (no preset, the default compiler, Release, Debian's build flags), then each fuzzer for a short
# while. A failing step stops the run and is named; the last line says what ran.
set -euo pipefail
cd "$(dirname "$0")/.."

tests_run=0
ran=()

fail() {
  echo "test.sh: FAILED in step: $1" >&2
  exit 1
}

# ctest_counting LABEL ARGS...: runs ctest and adds the tests it ran to the total.
ctest_counting() {
  local label=$1 log
  shift
  log=$(mktemp)
  if ! ctest "$@" 2>&1 | tee "$log"; then
    rm -f "$log"
    fail "$label: tests"
  fi
  local total
  total=$(sed -n 's/.*tests passed, 0 tests failed out of \([0-9]*\).*/\1/p' "$log" | tail -n 1)
  rm -f "$log"
  [[ -n "$total" ]] || fail "$label: tests (no summary from ctest)"
  tests_run=$((tests_run + total))
}

bash scripts/bootstrap.sh || fail "bootstrap"

for preset in gcc clang asan; do
  echo "== $preset: configure, build, test"
  cmake --preset "$preset" >/dev/null || fail "$preset: configure"
  cmake --build --preset "$preset" || fail "$preset: build"
  ctest_counting "$preset" --preset "$preset"
  ran+=("$preset")
done

# What a distribution's build does: none of the presets' settings, warnings not fatal, the
# distribution's own compiler flags. It proves the project builds and passes outside the presets.
echo "== packager: configure (no preset, Release, dpkg-buildflags), build, test"
packager=build/packager
(
  # The flags debian/rules builds the package with; CMake reads no CPPFLAGS, so they go with the
  # compiler flags, as debhelper's CMake build system passes them.
  export DEB_BUILD_MAINT_OPTIONS=hardening=+all
  eval "$(dpkg-buildflags --export=sh)"
  export CFLAGS="$CFLAGS $CPPFLAGS" CXXFLAGS="$CXXFLAGS $CPPFLAGS"
  cmake -S . -B "$packager" -DCMAKE_BUILD_TYPE=Release >/dev/null
) || fail "packager: configure"
cmake --build "$packager" --parallel 2 || fail "packager: build"
ctest_counting "packager" --test-dir "$packager" --output-on-failure --parallel 2 --timeout 300
ran+=("packager")

echo "== fuzz: short runs of every fuzzer"
fuzz_seconds=${VORNIX_FUZZ_SECONDS:-20}
fuzz_log=$(mktemp)
bash scripts/fuzz.sh "$fuzz_seconds" 2>&1 | tee "$fuzz_log" || { rm -f "$fuzz_log"; fail "fuzz"; }
fuzzers=$(sed -n 's/^fuzz: \([0-9]*\) fuzzers ran clean$/\1/p' "$fuzz_log")
rm -f "$fuzz_log"
[[ -n "$fuzzers" ]] || fail "fuzz (no fuzzer ran)"

echo "test.sh: all passed: builds ${ran[*]}; $tests_run tests; $fuzzers fuzzers clean for ${fuzz_seconds}s each"
