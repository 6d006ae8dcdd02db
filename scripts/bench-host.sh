#!/usr/bin/env bash
# Builds vornix-host and the minimal GTK 3 tray program (preset gcc) and measures both in the
# same run: start to tray item, resident memory and idle wake-ups.
#   bash scripts/bench-host.sh [RUNS] [IDLE_SECONDS]     (defaults: 5 runs, 60 idle seconds)
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh
cmake --preset gcc >/dev/null
cmake --build --preset gcc -j2 --target vornix-host minimal_gtk_tray
exec /usr/bin/python3 scripts/bench_host.py build/gcc/bin/vornix-host build/gcc/bin/minimal_gtk_tray "${1:-5}" "${2:-60}"
