#!/bin/sh
# Shows that the syntax check fails on a mistake: real backend files pass it, and the same files
# with a misspelt selector, an argument of the wrong type, API newer than macOS 10.14 used outside
# its @available check, a misspelt plug-in module or a plug-in whose module is not imported do
# not. The last shows that the plug-in classes are declared by their modules and nowhere else.
#
#   check-catches-mistakes.sh CHECK COMPILER KIT DECLARATIONS PLUGINS SOURCE_ROOT
set -u

check=$1
compiler=$2
kit=$3
declarations=$4
plugins=$5
sourceRoot=$6

alerts=$sourceRoot/platform/macos/AppKitAlerts.mm
popoverView=$sourceRoot/platform/macos/AppKitPopoverView.mm
registrant=$sourceRoot/platform/macos/GeneratedPluginRegistrant.m
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

run() {
    sh "$check" "$compiler" "$kit" "$declarations" "$plugins" "$sourceRoot" "$@" >"$work/output" 2>&1
}

run "$alerts" "$popoverView" "$registrant"
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

# mutate FILE NAME SED_EXPRESSION ERROR: the check must refuse FILE changed by the expression, with
# an error that says ERROR (a fixed string), so that the file is refused for that mistake.
mutate() {
    original=$1
    name=$2
    mutant=$work/$name.${original##*.}
    sed "$3" "$original" >"$mutant"
    if cmp -s "$original" "$mutant"; then
        echo "$name: the mistake was not made (the file has changed); update this test"
        exit 1
    fi
    if run "$mutant"; then
        echo "$name: the check passed a file with the mistake"
        exit 1
    fi
    if ! grep 'error:' "$work/output" | grep -qF "$4"; then
        cat "$work/output"
        echo "$name: refused, but not with an error saying \"$4\""
        exit 1
    fi
    echo "$name: refused"
    grep -m1 'error:' "$work/output"
}

mutate "$alerts" misspelt-selector 's/\[panel runModal\]/[panel runModel]/' "declares the selector 'runModel'"
mutate "$alerts" wrong-argument-type \
    's/\[panel addButtonWithTitle:toNSString(title)\]/[panel addButtonWithTitle:title.c_str()]/' \
    "with an rvalue of type 'const char *'"
mutate "$popoverView" unguarded-newer-api 's/if (@available(macOS 10\.15, \*)) {/{/' \
    "'NSSwitch' is only available on macOS 10.15 or newer"
mutate "$registrant" misspelt-plugin-module 's/^@import menubar;$/@import menu_bar;/' "module 'menu_bar' not found"
mutate "$registrant" plugin-module-not-imported '/^@import system_tray;$/d' \
    "use of undeclared identifier 'SystemTrayPlugin'"
