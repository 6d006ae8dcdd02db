#!/usr/bin/env bash
# Builds the fuzz preset and runs every libFuzzer target for SECONDS each (default 60), as many at
# once as there are processors.
# Seeds come from the fuzzer's corpus folder in the source tree (fuzz/corpus/NAME) and its
# dictionary from fuzz/NAME.dict beside it, when there are; findings land in build/fuzz/findings/.
# Then replays each fuzzer's corpus through the fuzz-coverage build and prints the line and
# branch coverage of the sources the fuzzer targets (its COVERS list); the per-file tables and
# the annotated sources are in build/fuzz-coverage/reports/ (NAME.txt, NAME.show.txt).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
# Inputs of at most 16 KiB, which every seed but one fits: libFuzzer otherwise tries inputs as
# large as the largest seed (the XML reader's text over 64 KiB) and runs many times slower.
# That seed is cut to this length while fuzzing and read whole by the coverage replay.
max_len=16384

bash scripts/bootstrap.sh
cmake --preset fuzz --no-warn-unused-cli >/dev/null
cmake --build --preset fuzz

mkdir -p build/fuzz/findings
mapfile -t fuzzers < <(find build/fuzz -type f -name 'fuzz_*' -perm -u+x | sort)
if [[ ${#fuzzers[@]} -eq 0 ]]; then
  echo "fuzz: no fuzz targets built"
  exit 0
fi
# fuzz FUZZER: one fuzzer's run, its exit status left in build/fuzz/NAME.status.
fuzz() {
  local fuzzer=$1 name work seeds dictionary status=0
  name=$(basename "$fuzzer")
  work="build/fuzz/corpus/$name"
  mkdir -p "$work"
  seeds=$(find . -path ./build -prune -o -type d -path "*/fuzz/corpus/$name" -print | head -n 1)
  dictionary=$(find . -path ./build -prune -o -type f -path "*/fuzz/$name.dict" -print | head -n 1)
  "$fuzzer" -max_total_time="$seconds" -max_len="$max_len" -print_final_stats=1 ${dictionary:+-dict="$dictionary"} \
    -artifact_prefix="build/fuzz/findings/$name-" "$work" ${seeds:+"$seeds"} 2>"build/fuzz/$name.log" || status=$?
  echo "$status" >"build/fuzz/$name.status"
}

# As many fuzzers at once as there are processors (VORNIX_FUZZ_JOBS sets another number); each
# runs on one, so every one still gets SECONDS of a processor.
parallel=${VORNIX_FUZZ_JOBS:-$(nproc)}
rm -f build/fuzz/*.status
for fuzzer in "${fuzzers[@]}"; do
  while (($(jobs -rp | wc -l) >= parallel)); do
    wait -n || true
  done
  echo "fuzz: $(basename "$fuzzer") for ${seconds}s"
  fuzz "$fuzzer" &
done
wait
for fuzzer in "${fuzzers[@]}"; do
  name=$(basename "$fuzzer")
  if [[ $(cat "build/fuzz/$name.status") != 0 ]]; then
    tail -n 40 "build/fuzz/$name.log"
    echo "fuzz: $name failed"
    exit 1
  fi
  grep -E '^#[0-9]+' "build/fuzz/$name.log" | tail -n 1 | sed "s/^/fuzz: $name: /"
done
echo "fuzz: ${#fuzzers[@]} fuzzers ran clean"

cmake --preset fuzz-coverage --no-warn-unused-cli >/dev/null
cmake --build --preset fuzz-coverage >/dev/null
reports=build/fuzz-coverage/reports
mkdir -p "$reports"
for fuzzer in "${fuzzers[@]}"; do
  name=$(basename "$fuzzer")
  replay=$(find build/fuzz-coverage -type f -name "$name" -perm -u+x | head -n 1)
  seeds=$(find . -path ./build -prune -o -type d -path "*/fuzz/corpus/$name" -print | head -n 1)
  rm -f "$reports/$name.profraw"
  LLVM_PROFILE_FILE="$reports/$name.profraw" "$replay" -runs=0 "build/fuzz/corpus/$name" ${seeds:+"$seeds"} \
    >/dev/null 2>&1 || { echo "fuzz: replaying the corpus of $name failed"; exit 1; }
  llvm-profdata-14 merge -sparse -o "$reports/$name.profdata" "$reports/$name.profraw"
  llvm-cov-14 export -summary-only "$replay" -instr-profile="$reports/$name.profdata" \
    | python3 scripts/coverage-summary.py "$name" "build/fuzz-coverage/fuzzers/$name.covers" > "$reports/$name.txt"
  llvm-cov-14 show "$replay" -instr-profile="$reports/$name.profdata" -show-branches=count > "$reports/$name.show.txt"
  head -n 1 "$reports/$name.txt"
done
