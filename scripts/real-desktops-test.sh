#!/usr/bin/env bash
# The real-desktop tier: the built host on Xfce (X11), sway with waybar, KDE Plasma and GNOME Shell
# with the AppIndicator extension (Wayland), each brought up headless in a private session and
# visited as a person would: the icon found on the panel, a left click (the popover's place and its
# latency), a click elsewhere, Escape, a right click (the menu). One verdict line per desktop, then
# 'N passed, N failed'; screenshots and the desktops' logs in build/real-desktops-artifacts/.
# Installs its own Debian packages (scripts/real-desktops-packages.txt), the host into
# /tmp/vornix-real-desktops (VORNIX_REAL_DESKTOPS_PREFIX names another), and makes the system user
# vornix-desktop for the Wayland desktops (sway refuses root). Needs root, as the setup scripts do.
#   bash scripts/real-desktops-test.sh [xfce|sway|kde|gnome]...
set -euo pipefail
cd "$(dirname "$0")/.."
here=$PWD

missing=()
while read -r package; do
  [[ -z "$package" || "$package" == \#* ]] && continue
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$package")
  fi
done < scripts/real-desktops-packages.txt
if [[ ${#missing[@]} -gt 0 ]]; then
  echo "real desktops: installing ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi

# The host as built by the test command (or built here), installed as a package installs it, into
# a prefix that the desktops' sessions add to their data folders (icons, desktop entry).
prefix=${VORNIX_REAL_DESKTOPS_PREFIX:-/tmp/vornix-real-desktops}
if [[ ! -x build/gcc/bin/vornix-host ]]; then
  bash scripts/bootstrap.sh
  cmake --preset gcc >/dev/null
fi
cmake --build --preset gcc --target vornix-host vornix-tool vornix_http_fetcher
rm -rf "$prefix"
cmake --install build/gcc --prefix "$prefix" >/dev/null
chmod -R a+rX "$prefix"

# The Wayland input tool, built here from the compositors' protocols.
tools=build/real-desktops-tools
mkdir -p "$tools"
for protocol in desktop_tests/real/input/virtual-pointer.xml /usr/share/plasma-wayland-protocols/fake-input.xml; do
  name=$(basename "$protocol" .xml)
  wayland-scanner client-header "$protocol" "$tools/$name-client.h"
  wayland-scanner private-code "$protocol" "$tools/$name-protocol.c"
  gcc -c -O1 -Wall -Werror "$tools/$name-protocol.c" -o "$tools/$name-protocol.o"
done
g++ -std=c++20 -O1 -Wall -Wextra -Werror -I"$tools" desktop_tests/real/input/wayland_input.cpp \
  "$tools"/*-protocol.o -lwayland-client -o "$tools/wayland-input"
# The desktops' own user runs it (and the host): a copy in a folder everyone can read.
install -m 755 "$tools/wayland-input" "$prefix/"
export VORNIX_WAYLAND_INPUT=$prefix/wayland-input VORNIX_PREFIX=$prefix

artifacts=build/real-desktops-artifacts
rm -rf "$artifacts"
echo "real desktops: screenshots and the desktops' logs in $here/$artifacts"
# Its last line sums up: 'N passed, N failed'.
exec /usr/bin/python3 desktop_tests/real/run_real_desktops.py --host "$prefix/bin/vornix-host" \
  --artifacts "$artifacts" "$@"
