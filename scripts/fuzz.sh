#!/usr/bin/env bash
# Builds the fuzz preset and runs every libFuzzer target for SECONDS each (default 60).
# Seeds come from the fuzzer's corpus folder in the source tree when there is one;
# findings land in build/fuzz/findings/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

bash scripts/bootstrap.sh
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

mkdir -p build/fuzz/findings
mapfile -t fuzzers < <(find build/fuzz -type f -name 'fuzz_*' -perm -u+x | sort)
if [[ ${#fuzzers[@]} -eq 0 ]]; then
  echo "fuzz: no fuzz targets built"
  exit 0
fi
for fuzzer in "${fuzzers[@]}"; do
  name=$(basename "$fuzzer")
  work="build/fuzz/corpus/$name"
  mkdir -p "$work"
  seeds=$(find . -path ./build -prune -o -type d -path "*/fuzz/corpus/$name" -print | head -n 1)
  echo "fuzz: $name for ${seconds}s"
  "$fuzzer" -max_total_time="$seconds" -print_final_stats=0 \
    -artifact_prefix="build/fuzz/findings/$name-" "$work" ${seeds:+"$seeds"} 2>build/fuzz/$name.log \
    || { tail -n 40 "build/fuzz/$name.log"; echo "fuzz: $name failed"; exit 1; }
done
echo "fuzz: ${#fuzzers[@]} fuzzers ran clean"
