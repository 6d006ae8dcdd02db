#!/bin/sh
# Compiles each Objective-C++ and Objective-C file given as it compiles for macOS (ARC, blocks, the
# macOS Objective-C runtime, every warning an error), syntax only, against the engine's and the
# updater's headers in the kit and this project's declarations of Apple's frameworks.
#
#   check-objcxx.sh COMPILER KIT DECLARATIONS PLUGINS SOURCE_ROOT FILE...
#
# A .mm file is Objective-C++ (C++20). A .m file is Objective-C with modules, as the Mac build
# compiles it: the engine's embedding is a module there (its framework's own module map; here one
# written for the kit's headers), and the plug-ins' modules are the stand-ins in PLUGINS, which
# only this check sees. Exit status 0 when every file compiles, 1 when one does not, 77 (skipped)
# when the kit or the compiler is missing.
set -u

compiler=$1
kit=$2
declarations=$3
plugins=$4
sourceRoot=$5
shift 5

if [ ! -d "$kit/FlutterMacOS.framework/Headers" ] || [ ! -d "$kit/Sparkle.framework/Headers" ]; then
    echo "SKIPPED: the macOS kit is not at $kit (set VORNIX_MACOS_KIT); the Objective-C++ backend is not checked"
    exit 77
fi
if ! command -v "$compiler" >/dev/null 2>&1; then
    echo "SKIPPED: no $compiler to check the Objective-C++ backend with"
    exit 77
fi

# The module map and the module cache live only as long as the check; a cache kept between runs
# could hide a change of the kit or the stand-ins.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
kitHeaders=$(cd "$kit/FlutterMacOS.framework/Headers" && pwd)
cat >"$work/FlutterMacOS.modulemap" <<MAP
module FlutterMacOS {
  header "$kitHeaders/FlutterMacOS.h"
  export *
}
MAP

# compile OPTIONS... FILE: the options every file shares come after the file's own.
compile() {
    "$compiler" -fsyntax-only "$@" -fobjc-arc -fblocks -fobjc-runtime=macosx-10.14 -Wall -Wextra -Werror \
        -I"$declarations" -F"$kit" -I"$sourceRoot"
}

failed=0
checked=0
for file in "$@"; do
    case $file in
        *.m) compile -x objective-c -fmodules -fmodules-cache-path="$work/modules" \
                 -fmodule-map-file="$work/FlutterMacOS.modulemap" -I"$plugins" "$file" ;;
        *) compile -x objective-c++ -std=c++20 "$file" ;;
    esac
    if [ $? -eq 0 ]; then
        checked=$((checked + 1))
    else
        echo "FAILED: $file"
        failed=1
    fi
done
echo "checked $checked of $# Objective-C and Objective-C++ files"
exit $failed
