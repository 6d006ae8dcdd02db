#!/bin/sh
# Shows that the deployment-target check fails on a use it is there to catch: a real source with
# integer from_chars passes it; the same source with a floating-point to_chars or from_chars
# added, or including (through a header of its own) <filesystem>, does not; nor does
# Objective-C++ that mentions to_chars.
#
#   check-deployment-target-catches-uses.sh CHECK COMPILER SOURCE_ROOT
set -u

check=$1
compiler=$2
sourceRoot=$3

original=$sourceRoot/plist/NumberText.cpp
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

run() {
    printf '%s\n' "$@" >"$work/list"
    sh "$check" "$compiler" "$sourceRoot" "$work/list" >"$work/output" 2>&1
}

if ! grep -q 'std::from_chars' "$original"; then
    echo "$original no longer reads integers with from_chars; update this test"
    exit 1
fi
if ! run "$original"; then
    cat "$work/output"
    echo "the unchanged file does not pass the check"
    exit 1
fi

# plant NAME FILE: the check must refuse FILE, made from the original with a planted use.
plant() {
    if run "$2"; then
        cat "$work/output"
        echo "$1: the check passed a planted use"
        exit 1
    fi
    echo "$1: refused"
    head -n 3 "$work/output"
}

cp "$original" "$work/FloatingToChars.cpp"
cat >>"$work/FloatingToChars.cpp" <<'EOF'
std::string plantedText(double value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}
EOF
plant floating-to-chars "$work/FloatingToChars.cpp"

cp "$original" "$work/FloatingFromChars.cpp"
cat >>"$work/FloatingFromChars.cpp" <<'EOF'
double plantedReading(std::string_view text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}
EOF
plant floating-from-chars "$work/FloatingFromChars.cpp"

mkdir "$work/planted"
printf '#pragma once\n#include <filesystem>\n' >"$work/planted/Paths.hpp"
{
    echo '#include "Paths.hpp"'
    cat "$original"
} >"$work/planted/IncludesFilesystem.cpp"
plant filesystem-through-a-header "$work/planted/IncludesFilesystem.cpp"

printf '#include <charconv>\nvoid planted(char* text, int value) { std::to_chars(text, text + 16, value); }\n' \
    >"$work/Planted.mm"
plant objective-c++-mentioning-to-chars "$work/Planted.mm"
