#!/bin/sh
# Shows that what the macOS build compiles needs nothing Apple's C++ library lacks on macOS 10.14,
# the deployment target: no source it compiles, and no project header those include, includes
# <filesystem> or names std::filesystem (available from 10.15), or calls the floating-point
# std::to_chars (from 13.3) or std::from_chars (missing). Integer to_chars and from_chars are fine,
# so every C++ source that mentions either, itself or through a header, is compiled here with the
# floating-point overloads declared deprecated, and a call of one is an error. Objective-C++,
# which this compiler does not build, must not mention them at all. What follows "//" is not read.
#
#   check-deployment-target.sh COMPILER SOURCE_ROOT SOURCE_LIST
#
# SOURCE_LIST holds one absolute path per line.
set -u
export LC_ALL=C

compiler=$1
sourceRoot=$2
list=$3
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

if [ ! -s "$list" ]; then
    echo "no sources listed in $list"
    exit 1
fi
missing=$(while IFS= read -r file; do [ -f "$file" ] || echo "$file"; done <"$list")
if [ -n "$missing" ]; then
    echo "listed sources that are not there:"
    echo "$missing"
    exit 1
fi

# Every project header the sources include, however deep: a quoted include is looked for beside
# the file that includes it, then from the project's root, as the compiler looks for it. Each
# include found is an edge "includer<tab>included" in $work/edges.
sort -u "$list" >"$work/seen"
cp "$work/seen" "$work/frontier"
: >"$work/edges"
while [ -s "$work/frontier" ]; do
    while IFS= read -r file; do
        folder=$(dirname "$file")
        sed -nE 's/^[[:space:]]*#[[:space:]]*(include|import)[[:space:]]*"([^"]+)".*/\2/p' "$file" |
            while IFS= read -r included; do
                if [ -f "$folder/$included" ]; then
                    printf '%s\t%s\n' "$file" "$folder/$included"
                elif [ -f "$sourceRoot/$included" ]; then
                    printf '%s\t%s\n' "$file" "$sourceRoot/$included"
                fi
            done >>"$work/edges"
    done <"$work/frontier"
    cut -f2 "$work/edges" | sort -u | comm -23 - "$work/seen" >"$work/frontier"
    sort -u "$work/seen" "$work/frontier" -o "$work/seen"
done

# The code of a file, line by line, without what follows "//".
code() {
    sed 's://.*$::' "$1"
}

while IFS= read -r file; do
    uses=$(code "$file" | grep -nE 'filesystem>|std::filesystem|filesystem::')
    if [ -n "$uses" ]; then
        echo "$file uses std::filesystem, which macOS 10.14 lacks:"
        echo "$uses"
        status=1
    fi
done <"$work/seen"

# The files that mention to_chars or from_chars, then everything that includes one of them.
while IFS= read -r file; do
    if code "$file" | grep -qE 'to_chars|from_chars'; then
        echo "$file"
    fi
done <"$work/seen" | sort -u >"$work/mentioning"
cp "$work/mentioning" "$work/added"
while [ -s "$work/added" ]; do
    awk -F '\t' 'NR == FNR { added[$0] = 1; next } ($2 in added) { print $1 }' "$work/added" "$work/edges" |
        sort -u | comm -23 - "$work/mentioning" >"$work/includers"
    sort -u "$work/mentioning" "$work/includers" -o "$work/mentioning"
    mv "$work/includers" "$work/added"
done

compiled=0
while IFS= read -r file; do
    case $file in
    *.cpp | *.cc)
        if ! "$compiler" -std=c++20 -fsyntax-only -I"$sourceRoot" -include "$here/FloatingCharconvDeprecated.hpp" \
            -Werror=deprecated-declarations "$file" >"$work/compiler-output" 2>&1; then
            echo "$file calls floating-point to_chars or from_chars, which macOS 10.14 lacks (or does not compile):"
            grep -E 'error' "$work/compiler-output"
            status=1
        fi
        compiled=$((compiled + 1))
        ;;
    *.mm | *.m)
        echo "$file (Objective-C++) mentions to_chars or from_chars, which cannot be checked here:"
        code "$file" | grep -nE 'to_chars|from_chars'
        status=1
        ;;
    esac
done <"$work/mentioning"

if [ $status -eq 0 ]; then
    echo "$(wc -l <"$list") sources the macOS build compiles and $(($(wc -l <"$work/seen") - $(wc -l <"$list")))" \
        "project headers they include: no std::filesystem; $compiled that mention to_chars or from_chars" \
        "compile without a floating-point one"
fi
exit $status
