#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks that the result is usable: the host
# runs from there and finds its icon, the desktop entry makes it the vornix-os URL handler, the
# HTTP fetcher module sits in the modules folder while the host itself does not need libcurl,
# the icon, metadata and manual pages are where desktops look; and that a staged install (as a
# package build makes) leaves the desktop database to the system it lands on.
#   install_layout.sh BUILD_DIR LIBDIR
set -euo pipefail
build=$1
libdir=$2
prefix=$(mktemp -d /tmp/vornix-install-XXXXXX)
staged=$(mktemp -d /tmp/vornix-staged-XXXXXX)
trap 'rm -rf "$prefix" "$staged"' EXIT

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
[[ -f "$prefix/share/icons/hicolor/scalable/apps/com.vornix.os.svg" ]] || fail "no icon in the hicolor theme"
tray_icon=com.vornix.os-symbolic.svg
[[ -f "$prefix/share/icons/hicolor/scalable/status/$tray_icon" ]] || fail "no tray icon in the hicolor theme"
[[ -f "$prefix/share/vornix-host/icons/$tray_icon" ]] || fail "no share/vornix-host/icons/$tray_icon"
[[ -f "$prefix/share/vornix-host/icons/hicolor/scalable/status/$tray_icon" ]] ||
  fail "no tray icon in the theme beside the host's resources"
grep -qx "StartupWMClass=com.vornix.os" "$entry" || fail "the desktop entry does not name the windows' class"
grep -qx "Icon=com.vornix.os" "$entry" || fail "the desktop entry does not name the themed icon"
[[ -f "$prefix/share/metainfo/com.vornix.os.metainfo.xml" ]] || fail "no AppStream metadata"
for page in vornix-host vornix-tool; do
  [[ -f "$prefix/share/man/man1/$page.1" ]] || fail "no manual page $page(1)"
done

DESTDIR="$staged" cmake --install "$build" --prefix /usr >/dev/null
[[ -f "$staged/usr/share/applications/com.vornix.os.desktop" ]] || fail "the staged install has no desktop entry"
if [[ -e "$staged/usr/share/applications/mimeinfo.cache" ]]; then
  fail "a staged install writes the desktop database"
fi
echo "install layout: ok"
