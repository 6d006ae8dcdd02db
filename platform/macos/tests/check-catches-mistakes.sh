#!/bin/sh
# Shows that the Objective-C++ check fails on a mistake: a real backend file passes it, and the
# same file with a misspelt selector, or with an argument of the wrong type, does not.
#
#   check-catches-mistakes.sh CHECK COMPILER KIT DECLARATIONS SOURCE_ROOT
set -u

check=$1
compiler=$2
kit=$3
declarations=$4
sourceRoot=$5

original=$sourceRoot/platform/macos/AppKitAlerts.mm
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

run() {
    sh "$check" "$compiler" "$kit" "$declarations" "$sourceRoot" "$1" >"$work/output" 2>&1
}

run "$original"
status=$?
if [ $status -eq 77 ]; then
    cat "$work/output"
    exit 77
fi
if [ $status -ne 0 ]; then
    cat "$work/output"
    echo "the unchanged file does not pass the check"
    exit 1
fi

# mutate NAME SED_EXPRESSION: the check must refuse the file changed by the expression.
mutate() {
    name=$1
    mutant=$work/$name.mm
    sed "$2" "$original" >"$mutant"
    if cmp -s "$original" "$mutant"; then
        echo "$name: the mistake was not made (the file has changed); update this test"
        exit 1
    fi
    if run "$mutant"; then
        echo "$name: the check passed a file with the mistake"
        exit 1
    fi
    echo "$name: refused"
    grep -m1 'error:' "$work/output"
}

mutate misspelt-selector 's/\[panel runModal\]/[panel runModel]/'
mutate wrong-argument-type 's/\[panel addButtonWithTitle:toNSString(title)\]/[panel addButtonWithTitle:title.c_str()]/'
