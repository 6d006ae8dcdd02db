#!/bin/sh
# Shows that the syntax check of the macOS build fails on a mistake: real files pass it, and the
# same files with a misspelt selector, an argument of the wrong type, a misspelt plug-in module or
# a plug-in whose module is not imported do not; nor, for a system older than the one they need,
# API newer than it used outside its @available check, posix_spawn's change of folder (Darwin's C
# library has it from macOS 10.15) and std::filesystem (Apple's C++ library has it from 10.15);
# nor a standard algorithm or the floating-point to_chars and from_chars, which Apple's C++
# library does not have at the deployment target. The plug-in mistakes show that the plug-in
# classes are declared by their modules and nowhere else.
#
#   check-catches-mistakes.sh CHECK COMPILER TARGET KIT DECLARATIONS PLUGINS SOURCE_ROOT
set -u

check=$1
compiler=$2
target=$3
kit=$4
declarations=$5
plugins=$6
sourceRoot=$7

# Older than every system the planted uses need, so that a use of one outside a check fails.
olderTarget=10.14

alerts=$sourceRoot/platform/macos/AppKitAlerts.mm
popoverView=$sourceRoot/platform/macos/AppKitPopoverView.mm
registrant=$sourceRoot/platform/macos/GeneratedPluginRegistrant.m
spawn=$sourceRoot/platform/Spawn.cpp
values=$sourceRoot/engine/EncodableValue.cpp
paths=$sourceRoot/platform/Paths.cpp
numberText=$sourceRoot/plist/NumberText.cpp
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# run TARGET FILE...: the check of FILE... for macOS TARGET.
run() {
    systemVersion=$1
    shift
    printf '%s\n' "$@" >"$work/list"
    sh "$check" "$compiler" "$systemVersion" "$kit" "$declarations" "$plugins" "$sourceRoot" "$work/list" \
        >"$work/output" 2>&1
}

run "$target" "$alerts" "$popoverView" "$registrant" "$spawn" "$values" "$paths" "$numberText"
status=$?
if [ $status -eq 77 ]; then
    cat "$work/output"
    exit 77
fi
if [ $status -ne 0 ]; then
    cat "$work/output"
    echo "the unchanged files do not pass the check"
    exit 1
fi

# refused NAME ERROR: the last check failed with an error that says ERROR (a fixed string), so
# that the file was refused for the mistake NAME.
refused() {
    if [ $status -eq 0 ]; then
        echo "$1: the check passed a file with the mistake"
        exit 1
    fi
    if ! grep 'error:' "$work/output" | grep -qF "$2"; then
        cat "$work/output"
        echo "$1: refused, but not with an error saying \"$2\""
        exit 1
    fi
    echo "$1: refused"
    grep -m1 -F "$2" "$work/output"
}

# mutate TARGET FILE NAME SED_EXPRESSION ERROR: the check for macOS TARGET must refuse FILE changed
# by the expression, with an error that says ERROR.
mutate() {
    original=$2
    name=$3
    mutant=$work/$name.${original##*.}
    sed "$4" "$original" >"$mutant"
    if cmp -s "$original" "$mutant"; then
        echo "$name: the mistake was not made (the file has changed); update this test"
        exit 1
    fi
    run "$1" "$mutant"
    status=$?
    refused "$name" "$5"
}

mutate "$target" "$alerts" misspelt-selector 's/\[panel runModal\]/[panel runModel]/' \
    "declares the selector 'runModel'"
mutate "$target" "$alerts" wrong-argument-type \
    's/\[panel addButtonWithTitle:toNSString(title)\]/[panel addButtonWithTitle:title.c_str()]/' \
    "cannot initialize a parameter of type 'NSString * _Nonnull' with an rvalue of type"
mutate "$olderTarget" "$popoverView" unguarded-newer-api 's/if (@available(macOS 10\.15, \*)) {/{/' \
    "'NSSwitch' is only available on macOS 10.15 or newer"
mutate "$target" "$registrant" misspelt-plugin-module 's/^@import menubar;$/@import menu_bar;/' \
    "module 'menu_bar' not found"
mutate "$target" "$registrant" plugin-module-not-imported '/^@import system_tray;$/d' \
    "use of undeclared identifier 'SystemTrayPlugin'"
mutate "$target" "$values" algorithm-apple-lacks \
    's/return compareElementwise(a, b, \*this);/return std::lexicographical_compare_three_way(a.begin(), a.end(),\
                b.begin(), b.end(), *this);/' \
    "no member named 'lexicographical_compare_three_way' in namespace 'std'"

if ! grep -q 'posix_spawn_file_actions_addchdir_np' "$spawn"; then
    echo "$spawn no longer changes the child's folder with posix_spawn_file_actions_addchdir_np; update this test"
    exit 1
fi
run "$olderTarget" "$spawn"
status=$?
refused folder-change-before-macos-10.15 \
    "'posix_spawn_file_actions_addchdir_np' is only available on macOS 10.15 or newer"

cp "$paths" "$work/FilesystemBeforeMacos10_15.cpp"
cat >>"$work/FilesystemBeforeMacos10_15.cpp" <<'CODE'
#include <filesystem>
bool plantedIsFolder(const char* path) { return std::filesystem::is_directory(path); }
CODE
run "$olderTarget" "$work/FilesystemBeforeMacos10_15.cpp"
status=$?
refused filesystem-before-macos-10.15 "'is_directory' is unavailable: introduced in macOS 10.15"

# Apple's library has no floating-point from_chars and marks the floating-point to_chars for a
# system later than every target (base/RealText does both instead); a double given to from_chars
# reaches only the deleted overload for bool.
cp "$numberText" "$work/FloatingToChars.cpp"
cat >>"$work/FloatingToChars.cpp" <<'CODE'
std::string plantedText(double value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}
CODE
run "$target" "$work/FloatingToChars.cpp"
status=$?
refused floating-point-to-chars "'to_chars' is unavailable"

cp "$numberText" "$work/FloatingFromChars.cpp"
cat >>"$work/FloatingFromChars.cpp" <<'CODE'
double plantedReading(std::string_view text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}
CODE
run "$target" "$work/FloatingFromChars.cpp"
status=$?
refused floating-point-from-chars "call to deleted function 'from_chars'"
