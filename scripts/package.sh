#!/usr/bin/env bash
# Builds the Debian package vornix-os_<version>_<arch>.deb into build/package/, the Debian way:
# dpkg-buildpackage in a copy of the source tree (it writes its results beside the tree it builds).
# DEB_BUILD_OPTIONS defaults to "parallel=2 nocheck": the test command runs the project's tests.
# With --in-build-root the package is built as Debian's build daemons build it, with its tests,
# in a throwaway copy of this system that holds only what debian/control names
# (scripts/package_build_root.py; as root).
#   bash scripts/package.sh [--in-build-root]
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh

version=$(dpkg-parsechangelog -S Version)
out=build/package
tree="$out/vornix-os-$version"
rm -rf "$out"
mkdir -p "$tree"
tar --exclude=./build --exclude=./.git -cf - . | tar -xf - -C "$tree"

if [[ ${1:-} == --in-build-root ]]; then
  /usr/bin/python3 scripts/package_build_root.py "$tree" 2
else
  echo "package: dpkg-buildpackage in $tree"
  (cd "$tree" && DEB_BUILD_OPTIONS=${DEB_BUILD_OPTIONS:-"parallel=2 nocheck"} dpkg-buildpackage -b -us -uc)
fi
rm -rf "$tree"
deb=$(ls "$out"/vornix-os_"$version"_*.deb)
echo "package: $deb"
