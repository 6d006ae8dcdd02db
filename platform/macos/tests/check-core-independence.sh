#!/bin/sh
# Shows that the macOS backend stays out of everything else: no source outside it (platform/macos,
# the application's Objective-C++ in app/macos, the window library's frameless window class)
# includes it, and this (non-Apple) build compiles none of it and no Objective-C or Objective-C++
# at all.
#
#   check-core-independence.sh SOURCE_ROOT BINARY_DIR
set -u

sourceRoot=$1
binaryDir=$2
status=0

includes=$(cd "$sourceRoot" && grep -rnE '^\s*#\s*(include|import)\s*[<"](platform/macos/|app/macos/[^/]+\.h[">])' \
    --include='*.cpp' --include='*.hpp' --include='*.h' --include='*.c' --include='*.m' --include='*.mm' \
    --exclude-dir=.git --exclude-dir='build*' . \
    | grep -vE '^\./platform/macos/|^\./app/macos/[^/]+\.(mm|h):|^\./bitsdojo_window_macos/macos/Classes/BDWFramelessWindow\.')
if [ -n "$includes" ]; then
    echo "sources outside the macOS backend include it:"
    echo "$includes"
    status=1
fi

commands=$binaryDir/compile_commands.json
if [ ! -f "$commands" ]; then
    echo "no $commands to read the build's sources from"
    exit 1
fi
compiled=$(grep -E '"file":' "$commands" | grep -E 'platform/macos/|\.mm?"')
if [ -n "$compiled" ]; then
    echo "the build compiles macOS sources:"
    echo "$compiled"
    status=1
fi
[ $status -eq 0 ] && echo "nothing outside the macOS backend includes it; $(grep -c '"file":' "$commands") sources built, none of them macOS"
exit $status
