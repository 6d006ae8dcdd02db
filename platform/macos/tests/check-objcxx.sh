#!/bin/sh
# Compiles each Objective-C++ and Objective-C file given as it compiles for macOS, syntax only:
# for an x86_64 Mac with macOS 10.14, the deployment target (ARC, blocks, the macOS Objective-C
# runtime, every warning an error, so that a use of API newer than 10.14 outside an @available
# check fails), against the engine's and the updater's headers in the kit and this project's
# declarations of Apple's frameworks.
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

# The C and C++ library headers are this machine's own: the compiler's search list for its own
# target, one -isystem option per line, in the same order, given in place of what an Apple target
# would search (Apple's SDK, which is not here).
searchList() {
    "$compiler" -x "$1" -E -v - </dev/null 2>&1 \
        | sed -n '/^#include <\.\.\.> search starts here:$/,/^End of search list\.$/s/^ \(.*\)$/-isystem\1/p'
}
cSearch=$(searchList c)
cxxSearch=$(searchList c++)
if [ -z "$cSearch" ] || [ -z "$cxxSearch" ]; then
    echo "$compiler did not list its own header folders (-E -v); nothing is checked"
    exit 1
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

# compile SEARCH OPTIONS... FILE: SEARCH is one of the lists above, split at its lines. An Apple
# target defines __nonnull as a nullability keyword, which glibc's headers define otherwise.
compile() {
    search=$1
    shift
    oldIfs=$IFS
    IFS='
'
    # shellcheck disable=SC2086
    set -- -nostdinc $search "$@"
    IFS=$oldIfs
    "$compiler" -target x86_64-apple-macos10.14 -U__nonnull -fsyntax-only "$@" -fobjc-arc -fblocks \
        -fobjc-runtime=macosx-10.14 -Wall -Wextra -Werror -I"$declarations" -F"$kit" -I"$sourceRoot"
}

failed=0
checked=0
for file in "$@"; do
    case $file in
        *.m) compile "$cSearch" -x objective-c -fmodules -fmodules-cache-path="$work/modules" \
                 -fmodule-map-file="$work/FlutterMacOS.modulemap" -I"$plugins" "$file" ;;
        # Clang defines _GNU_SOURCE for C++ on this machine's own target, as its C++ library needs.
        *) compile "$cxxSearch" -nostdinc++ -x objective-c++ -std=c++20 -D_GNU_SOURCE "$file" ;;
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
