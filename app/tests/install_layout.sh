#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks that the result is usable: the host
# runs from there and finds its icon, the desktop entry makes it the vornix-os URL handler, and
# the HTTP fetcher module sits in the modules folder while the host itself does not need libcurl.
#   install_layout.sh BUILD_DIR LIBDIR
set -euo pipefail
build=$1
libdir=$2
prefix=$(mktemp -d /tmp/vornix-install-XXXXXX)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null
fail() { echo "install layout: $*"; exit 1; }

[[ -x "$prefix/bin/vornix-host" ]] || fail "no bin/vornix-host"
[[ -f "$prefix/share/vornix-host/icons/TrayIcon.svg" ]] || fail "no share/vornix-host/icons/TrayIcon.svg"
entry="$prefix/share/applications/com.vornix.os.desktop"
[[ -f "$entry" ]] || fail "no desktop entry"
grep -qx "MimeType=x-scheme-handler/vornix-os;" "$entry" || fail "the desktop entry does not handle vornix-os"
grep -qx "Exec=$prefix/bin/vornix-host %u" "$entry" || fail "the desktop entry does not start the installed host"
if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate "$entry" || fail "the desktop entry is not valid"
fi
version=$("$prefix/bin/vornix-host" --version)
[[ $version == "vornix-host "* ]] || fail "the installed host does not run"
symbols=$(nm -D "$prefix/bin/vornix-host")
grep -q " T bitsdojo_window_api$" <<<"$symbols" || fail "bitsdojo_window_api is not exported"
[[ -f "$prefix/$libdir/vornix-host/vornix-http-fetcher.so" ]] || fail "no $libdir/vornix-host/vornix-http-fetcher.so"
# Read whole before matching: with pipefail, grep -q leaving early would fail the pipeline.
module_libraries=$(ldd "$prefix/$libdir/vornix-host/vornix-http-fetcher.so")
grep -q "libcurl" <<<"$module_libraries" || fail "the HTTP fetcher module does not use libcurl"
host_libraries=$(ldd "$prefix/bin/vornix-host")
if grep -q "libcurl" <<<"$host_libraries"; then
  fail "the host loads libcurl at start-up"
fi
echo "install layout: ok"
