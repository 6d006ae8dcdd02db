#!/usr/bin/env bash
# The URL scheme the macOS Info.plist declares is the one the Linux desktop entry handles: the
# build is installed into a temporary prefix, and the installed com.vornix.os.desktop's
# "x-scheme-handler/" MIME type is compared with CFBundleURLSchemes as plistlib reads it.
#   url_scheme_matches_desktop_entry.sh BUILD_DIR INFO_PLIST PYTHON
set -euo pipefail
build=$1
info_plist=$2
python=$3
prefix=$(mktemp -d /tmp/vornix-scheme-XXXXXX)
trap 'rm -rf "$prefix"' EXIT
fail() { echo "url scheme: $*"; exit 1; }

cmake --install "$build" --prefix "$prefix" >/dev/null
entry="$prefix/share/applications/com.vornix.os.desktop"
[[ -f "$entry" ]] || fail "no installed desktop entry"
mime_types=$(sed -n 's/^MimeType=//p' "$entry")
desktop_schemes=$(tr ';' '\n' <<<"$mime_types" | sed -n 's|^x-scheme-handler/||p')
[[ -n "$desktop_schemes" ]] || fail "the desktop entry handles no URL scheme"

bundle_schemes=$("$python" -c '
import plistlib, sys
with open(sys.argv[1], "rb") as file:
    info = plistlib.load(file)
for url_type in info["CFBundleURLTypes"]:
    for scheme in url_type["CFBundleURLSchemes"]:
        print(scheme)
' "$info_plist")

[[ "$desktop_schemes" == "$bundle_schemes" ]] ||
  fail "Info.plist declares '$bundle_schemes', the desktop entry '$desktop_schemes'"
echo "url scheme: $bundle_schemes in both"
