#!/usr/bin/env bash
# Builds the Debian package vornix-os_<version>_<arch>.deb into build/package/, the Debian way:
# dpkg-buildpackage in a copy of the source tree (it writes its results beside the tree it builds).
# DEB_BUILD_OPTIONS defaults to "parallel=2 nocheck": the test command runs the project's tests.
#   bash scripts/package.sh
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh

version=$(dpkg-parsechangelog -S Version)
out=build/package
tree="$out/vornix-os-$version"
rm -rf "$out"
mkdir -p "$tree"
tar --exclude=./build --exclude=./.git -cf - . | tar -xf - -C "$tree"

echo "package: dpkg-buildpackage in $tree"
(cd "$tree" && DEB_BUILD_OPTIONS=${DEB_BUILD_OPTIONS:-"parallel=2 nocheck"} dpkg-buildpackage -b -us -uc)
rm -rf "$tree"
deb=$(ls "$out"/vornix-os_"$version"_*.deb)
echo "package: $deb"
