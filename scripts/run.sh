#!/usr/bin/env bash
# Sets up a fresh machine, builds the project and runs the host.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh
cmake --preset gcc >/dev/null
cmake --build --preset gcc

host=build/gcc/bin/vornix-host
if [[ -x "$host" ]]; then
  exec "$host" "$@"
fi
echo "run: the desktop host (vornix-host) is not built yet; its Linux backend does not exist so far."
echo "run: what exists is the engineering tool, build/gcc/tool/vornix-tool:"
exec build/gcc/tool/vornix-tool --help
