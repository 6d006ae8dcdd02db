#!/bin/sh
# Compiles each file listed as the Mac build compiles it, syntax only, against Apple's libraries as
# far as they can be had off a Mac: for an x86_64 Mac with the deployment target TARGET; with
# LLVM's C++ library (the release Xcode's is made from) configured as Apple ships it, so that its
# own availability markings refuse what the target's system library lacks; with this machine's C
# library, Darwin's own headers in its place where they differ (DECLARATIONS: spawn.h, xlocale.h,
# crt_externs.h), the C functions that arrived in later systems marked with their version; and
# with the engine's and the updater's headers in the kit and this project's declarations of
# Apple's frameworks. Every warning is an error, so that API newer than the target used outside an
# @available check fails.
#
#   check-macos-syntax.sh COMPILER TARGET KIT DECLARATIONS PLUGINS SOURCE_ROOT SOURCE_LIST
#
# SOURCE_LIST holds one absolute path per line, each followed by the definitions the build gives
# that file (NAME=VALUE), each after a tab. A .cpp file is C++20, a .mm file Objective-C++ (C++20)
# with ARC and blocks. A .m file is Objective-C with modules, as the Mac build compiles it: the
# engine's embedding is a module there (its framework's own module map; here one written for the
# kit's headers), and the plug-ins' modules are the stand-ins in PLUGINS, which only this check
# sees. Exit status 0 when every file compiles, 1 when one does not, 77 (skipped) when the
# compiler or its C++ library is missing, or the kit (the C++ files are checked all the same).
set -u

compiler=$1
target=$2
kit=$3
declarations=$4
plugins=$5
sourceRoot=$6
list=$7
here=$(cd "$(dirname "$0")" && pwd)

if ! command -v "$compiler" >/dev/null 2>&1; then
    echo "SKIPPED: no $compiler to check the macOS build with"
    exit 77
fi

# The compiler's search list for its own target, one -isystem option per line, in the same order,
# given in place of what an Apple target would search (Apple's SDK, which is not here).
searchList() {
    "$compiler" "$@" -E -v - </dev/null 2>&1 \
        | sed -n '/^#include <\.\.\.> search starts here:$/,/^End of search list\.$/s/^ \(.*\)$/-isystem\1/p'
}
cSearch=$(searchList -x c)
cxxSearch=$(searchList -x c++ -stdlib=libc++)
if [ -z "$cSearch" ] || [ -z "$cxxSearch" ]; then
    echo "$compiler did not list its own header folders (-E -v); nothing is checked"
    exit 1
fi
libcxx=$(echo "$cxxSearch" | sed -n 's/^-isystem//p' | while IFS= read -r folder; do
    if [ -f "$folder/__availability" ]; then
        echo "$folder"
        break
    fi
done)
if [ -z "$libcxx" ]; then
    echo "SKIPPED: $compiler has no LLVM C++ library (libc++-16-dev); the macOS build is not checked"
    exit 77
fi
# Xcode 15's library is LLVM's 16; another release has other parts and other markings.
if ! grep -qE '^#[[:space:]]*define _LIBCPP_VERSION 16[0-9]{4}$' "$libcxx/__config"; then
    echo "SKIPPED: the C++ library in $libcxx is not LLVM 16's; the macOS build is not checked"
    exit 77
fi
# The library's own build settings are this project's, Apple's (see libcxx/__config_site), found
# before the Debian build's.
cxxSearch="-isystem$here/libcxx
$cxxSearch"

# Without the kit only the C++ is checked, and the check counts as skipped unless that fails.
haveKit=1
if [ ! -d "$kit/FlutterMacOS.framework/Headers" ] || [ ! -d "$kit/Sparkle.framework/Headers" ]; then
    haveKit=0
fi

# The module map and the module cache live only as long as the check; a cache kept between runs
# could hide a change of the kit or the stand-ins.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
if [ $haveKit -eq 1 ]; then
    kitHeaders=$(cd "$kit/FlutterMacOS.framework/Headers" && pwd)
    cat >"$work/FlutterMacOS.modulemap" <<MAP
module FlutterMacOS {
  header "$kitHeaders/FlutterMacOS.h"
  export *
}
MAP
fi

# compile SEARCH OPTIONS... FILE: SEARCH is one of the lists above, split at its lines. An Apple
# target defines __nonnull as a nullability keyword, which glibc's headers define otherwise.
# Darwin's character class functions are functions, which glibc's make macros of unless
# __NO_CTYPE is defined (Apple's C++ library calls them with a null locale, the "C" locale).
compile() {
    search=$1
    shift
    oldIfs=$IFS
    IFS='
'
    # shellcheck disable=SC2086
    set -- -nostdinc $search "$@"
    IFS=$oldIfs
    "$compiler" -target "x86_64-apple-macos$target" -U__nonnull -D__NO_CTYPE -fsyntax-only "$@" -Wall -Wextra \
        -Werror -I"$declarations" -F"$kit" -I"$sourceRoot"
}

if [ ! -s "$list" ]; then
    echo "no sources listed in $list"
    exit 1
fi

tab=$(printf '\t')
defaultIfs=$IFS
failed=0
checked=0
listed=0
while IFS= read -r line; do
    # The file, then its definitions as one -D option each, in the positional parameters.
    set -f
    IFS=$tab
    # shellcheck disable=SC2086
    set -- $line
    IFS=$defaultIfs
    set +f
    file=$1
    shift
    for definition do
        set -- "$@" "-D$definition"
        shift
    done
    listed=$((listed + 1))
    case $file in
        *.m | *.mm) if [ $haveKit -eq 0 ]; then continue; fi ;;
    esac
    case $file in
        *.m) compile "$cSearch" -x objective-c -fobjc-arc -fblocks -fobjc-runtime="macosx-$target" -fmodules \
                 -fmodules-cache-path="$work/modules" -fmodule-map-file="$work/FlutterMacOS.modulemap" \
                 -I"$plugins" "$@" "$file" ;;
        # Clang defines _GNU_SOURCE for C++ on this machine's own target, as glibc's headers need
        # for what the C++ library takes from them.
        *.mm) compile "$cxxSearch" -nostdinc++ -x objective-c++ -std=c++20 -fobjc-arc -fblocks \
                  -fobjc-runtime="macosx-$target" -D_GNU_SOURCE "$@" "$file" ;;
        *) compile "$cxxSearch" -nostdinc++ -x c++ -std=c++20 -D_GNU_SOURCE "$@" "$file" ;;
    esac
    if [ $? -eq 0 ]; then
        checked=$((checked + 1))
    else
        echo "FAILED: $file"
        failed=1
    fi
done <"$list"
echo "checked $checked of $listed C++, Objective-C and Objective-C++ files for macOS $target"
if [ $failed -eq 0 ] && [ $haveKit -eq 0 ]; then
    echo "SKIPPED: the macOS kit is not at $kit (set VORNIX_MACOS_KIT);" \
        "the Objective-C and Objective-C++ files are not checked"
    exit 77
fi
exit $failed
