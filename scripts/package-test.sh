#!/usr/bin/env bash
# Builds the Debian package as a build daemon would, with its tests, in a system cut down to its
# build dependencies (scripts/package.sh --in-build-root), and checks it as Debian and desktops would:
# lintian with no errors or warnings, the AppStream metadata, the desktop entry and the manual
# pages as installed, no maintainer scripts or caches of our own, libcurl needed by the HTTP
# fetcher module only; then installs it into a throwaway copy of the system, runs it, purges it
# (scripts/package_install_test.py). Needs root, as the setup scripts do.
#   bash scripts/package-test.sh
set -euo pipefail
cd "$(dirname "$0")/.."
fail() { echo "package test: FAILED: $*"; exit 1; }

started=$SECONDS
bash scripts/package.sh --in-build-root
built=$SECONDS
deb=$(ls build/package/vornix-os_*.deb)

echo "== package test: lintian"
lintian --fail-on error,warning --display-info "$deb" || fail "lintian reports errors or warnings"

contents=$(mktemp -d /tmp/vornix-deb-contents-XXXXXX)
trap 'rm -rf "$contents"' EXIT
dpkg-deb -x "$deb" "$contents"

echo "== package test: AppStream metadata, desktop entry, manual pages"
appstreamcli validate --no-net "$contents/usr/share/metainfo/com.vornix.os.metainfo.xml" ||
  fail "the AppStream metadata does not validate"
desktop-file-validate "$contents/usr/share/applications/com.vornix.os.desktop" ||
  fail "the desktop entry does not validate"
for page in "$contents"/usr/share/man/man1/*.1.gz; do
  warnings=$(man --warnings -l "$page" 2>&1 >/dev/null)
  [[ -z $warnings ]] || fail "$(basename "$page"): $warnings"
  echo "$(basename "$page"): no warnings"
done

echo "== package test: contents"
control_files=$(dpkg-deb --ctrl-tarfile "$deb" | tar -t | sort | tr '\n' ' ')
[[ $control_files == "./ ./control ./md5sums " ]] || fail "the control archive holds more than control and md5sums: $control_files"
if find "$contents" -name mimeinfo.cache -o -name icon-theme.cache | grep -q .; then
  fail "the package ships a desktop database or icon cache"
fi
host_needs=$(readelf -d "$contents/usr/bin/vornix-host")
if grep -q "libcurl" <<<"$host_needs"; then
  fail "vornix-host needs libcurl"
fi
module_needs=$(readelf -d "$contents"/usr/lib/*/vornix-host/vornix-http-fetcher.so)
grep -q "libcurl" <<<"$module_needs" || fail "the HTTP fetcher module does not need libcurl"
depends=$(dpkg-deb -f "$deb" Depends)
grep -q "libcurl" <<<"$depends" || fail "the package does not depend on libcurl: $depends"
echo "$(basename "$deb"): $(stat -c %s "$deb") bytes, Installed-Size $(dpkg-deb -f "$deb" Installed-Size) KiB"
echo "Depends: $depends"

echo "== package test: install into a copy of the system, run, purge"
/usr/bin/python3 scripts/package_install_test.py "$deb" build/package/test

echo "package test: ok (build $((built - started)) s, checks $((SECONDS - built)) s)"
