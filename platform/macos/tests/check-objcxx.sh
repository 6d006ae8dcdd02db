#!/bin/sh
# Compiles each Objective-C++ file given as it compiles for macOS (ARC, blocks, the macOS
# Objective-C runtime, every warning an error), syntax only, against the engine's and the
# updater's headers in the kit and this project's declarations of Apple's frameworks.
#
#   check-objcxx.sh COMPILER KIT DECLARATIONS SOURCE_ROOT FILE.mm...
#
# Exit status 0 when every file compiles, 1 when one does not, 77 (skipped) when the kit or the
# compiler is missing.
set -u

compiler=$1
kit=$2
declarations=$3
sourceRoot=$4
shift 4

if [ ! -d "$kit/FlutterMacOS.framework/Headers" ] || [ ! -d "$kit/Sparkle.framework/Headers" ]; then
    echo "SKIPPED: the macOS kit is not at $kit (set VORNIX_MACOS_KIT); the Objective-C++ backend is not checked"
    exit 77
fi
if ! command -v "$compiler" >/dev/null 2>&1; then
    echo "SKIPPED: no $compiler to check the Objective-C++ backend with"
    exit 77
fi

failed=0
checked=0
for file in "$@"; do
    if "$compiler" -fsyntax-only -x objective-c++ -std=c++20 -fobjc-arc -fblocks -fobjc-runtime=macosx-10.14 \
        -Wall -Wextra -Werror -I"$declarations" -F"$kit" -I"$sourceRoot" "$file"; then
        checked=$((checked + 1))
    else
        echo "FAILED: $file"
        failed=1
    fi
done
echo "checked $checked of $# Objective-C++ files"
exit $failed
