#!/usr/bin/env bash
# scripts/mac-acceptance.sh off a Mac: it parses (bash -n), it is clean for shellcheck where that is
# installed, and it refuses with its one line on any system but a Mac; on a Mac (a stand-in uname)
# without its two folders it gives its usage line and nothing else.
#   mac_acceptance_test.sh MAC_ACCEPTANCE_SCRIPT
set -euo pipefail
script=$1
work=$(mktemp -d /tmp/vornix-acceptance-test-XXXXXX)
trap 'rm -rf "$work"' EXIT
fail() { echo "mac acceptance: $*"; exit 1; }

bash -n "$script" || fail "bash -n refuses the script"
if command -v shellcheck >/dev/null; then
  shellcheck "$script" || fail "shellcheck finds the above"
else
  echo "mac acceptance: shellcheck is not installed; not run"
fi

# runAs SYSTEM ARGS...: the script with a uname that names SYSTEM; its output and exit status.
runAs() {
  local system=$1
  shift
  mkdir -p "$work/$system"
  printf '#!/bin/sh\necho %s\n' "$system" >"$work/$system/uname"
  chmod +x "$work/$system/uname"
  status=0
  output=$(PATH="$work/$system:$PATH" bash "$script" "$@" 2>&1) || status=$?
}

for system in Linux FreeBSD; do
  runAs "$system" "$work" "$work"
  [[ $status == 2 ]] || fail "on $system it exits with $status, not 2"
  [[ "$output" == "mac-acceptance: runs only on a Mac (this system is $system)" ]] ||
    fail "on $system it says
$output"
done

runAs Darwin
[[ $status == 2 && "$output" == "usage: bash scripts/mac-acceptance.sh FLUTTER_APP_DIR SPARKLE_DIR" ]] ||
  fail "on a Mac without arguments it exits with $status and says
$output"
echo "mac acceptance: ok"
