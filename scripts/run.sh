#!/usr/bin/env bash
# Sets up a fresh machine, builds the project and runs the host. With a display the host runs
# on it; without one (a server, a container) it runs on a virtual display, its popover is
# opened and a screenshot of it is saved, and the path printed.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh
cmake --preset gcc >/dev/null
cmake --build --preset gcc -j2 --target vornix-host

host=build/gcc/bin/vornix-host
if [[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]]; then
  exec "$host" "$@"
fi
echo "run: no display here; starting vornix-host on a virtual display"
exec /usr/bin/python3 scripts/run_headless.py "$host" build/gcc/run/popover.png
