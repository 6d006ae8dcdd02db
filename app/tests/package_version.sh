#!/usr/bin/env bash
# The project has one version: the one project() gives (passed in by CMake), which vornix-host
# --version prints. The Debian package's changelog and the AppStream metadata's newest release
# must carry the same one.
#   package_version.sh SOURCE_DIR PROJECT_VERSION
set -euo pipefail
source_dir=$1
version=$2
fail() { echo "package version: $*"; exit 1; }

changelog_version=$(sed -n '1s/^[^ ]* (\([^)]*\)).*/\1/p' "$source_dir/debian/changelog")
[[ $changelog_version == "$version" ]] ||
  fail "debian/changelog says '$changelog_version', the project is $version"

# Releases are listed newest first.
metainfo="$source_dir/app/resources/com.vornix.os.metainfo.xml"
newest_release=$(grep -o '<release version="[^"]*"' "$metainfo" | head -n 1 | cut -d'"' -f2)
[[ $newest_release == "$version" ]] ||
  fail "the newest release in $metainfo is '$newest_release', the project is $version"

for page in app/vornix-host.1 tool/vornix-tool.1; do
  grep -q "^\.TH .* \"Vornix OS $version\"" "$source_dir/$page" ||
    fail "$page does not name Vornix OS $version in its title line"
done
echo "package version: $version everywhere"
