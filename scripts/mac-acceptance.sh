#!/usr/bin/env bash
# The acceptance run of Vornix OS.app on a Mac, for the first person with one:
#
#   bash scripts/mac-acceptance.sh FLUTTER_APP_DIR SPARKLE_DIR
#
# FLUTTER_APP_DIR is the Flutter application's folder, SPARKLE_DIR the folder holding
# Sparkle.framework. It builds the Flutter application for macOS, then Vornix OS.app with the macos
# preset (signed as VORNIX_CODESIGN_IDENTITY says, ad hoc when unset), and prints one verdict line
# per check, "PASS", "FAIL" or "SKIP", the check's name and what was seen:
#
#   build                 the preset configures and builds the application and the backend's tests
#   exported symbol       bitsdojo_window_api is in the executable's exported symbols (nm -gU), on
#                         every architecture, where the engine looks it up by name
#   signature             codesign --verify --strict accepts the bundle
#   gatekeeper            spctl --assess accepts it (only a Developer ID signature can pass; ad hoc
#                         signing is skipped)
#   plug-in classes       each of the nine engine plug-ins' classes is bound from a framework
#                         embedded in the bundle (nm -m); the launch below shows dyld binds them
#   minimum systems       Info.plist's LSMinimumSystemVersion is the deployment target, and no
#                         embedded framework or library is built for a newer macOS (vtool -show-build)
#   backend tests         the backend's own tests against AppKit (ctest, macos preset)
#   launch                the application starts, says "finished launching" and is still running
#                         ten seconds later
#   status item           the running application has a window at the status bar's level
#   URL while running     a vornix-os: URL opened while it runs reaches its handler
#   URL on a cold launch  a vornix-os: URL that starts it reaches its handler
#
# A URL reaches the handler observably because the URLs sent have no query: the handler stops the
# process with "Fatal error: the URL has no query: <the URL>", as the host does with malformed
# input. macOS may then offer to report the stop; that dialog can be dismissed. The script exits 0
# when nothing failed. Written for the bash 3.2 that macOS ships.
set -uo pipefail

if [ "$(uname -s)" != Darwin ]; then
  echo "mac-acceptance: runs only on a Mac (this system is $(uname -s))" >&2
  exit 2
fi
if [ $# -ne 2 ]; then
  echo "usage: bash scripts/mac-acceptance.sh FLUTTER_APP_DIR SPARKLE_DIR" >&2
  exit 2
fi
flutterApp=$(cd "$1" && pwd) || exit 2
sparkle=$(cd "$2" && pwd) || exit 2
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root" || exit 2

build="$root/build/macos"
app="$build/Vornix OS.app"
executable="$app/Contents/MacOS/Vornix OS"
passed=0
failed=0
work=$(mktemp -d /tmp/vornix-acceptance-XXXXXX)
# The logs are kept when a check failed, for the verdict lines that point into them.
trap '[ "$failed" -eq 0 ] && rm -rf "$work"' EXIT

verdict() {  # verdict PASS|FAIL|SKIP CHECK DETAIL
  echo "$1 $2: $3"
  case $1 in
    PASS) passed=$((passed + 1)) ;;
    FAIL) failed=$((failed + 1)) ;;
  esac
}

finish() {
  echo "mac-acceptance: $passed passed, $failed failed"
  [ "$failed" -eq 0 ]
  exit $?
}

# version_above A B: whether dotted version A is above B.
version_above() {
  local a b i
  IFS=. read -r -a a <<<"$1"
  IFS=. read -r -a b <<<"$2"
  for i in 0 1 2; do
    if [ "${a[$i]:-0}" -gt "${b[$i]:-0}" ]; then return 0; fi
    if [ "${a[$i]:-0}" -lt "${b[$i]:-0}" ]; then return 1; fi
  done
  return 1
}

# --- build -------------------------------------------------------------------------------------
(cd "$flutterApp" && flutter build macos --release) >"$work/flutter.log" 2>&1
frameworks=""
for folder in "$flutterApp"/build/macos/Build/Products/Release/*.app/Contents/Frameworks; do
  [ -d "$folder" ] && frameworks=$folder
done
if [ -z "$frameworks" ]; then
  verdict FAIL build "flutter build macos gave no application with frameworks (see $work/flutter.log)"
  finish
fi
plugins=""
for framework in "$frameworks"/*.framework; do
  case $(basename "$framework") in
    FlutterMacOS.framework | App.framework | Sparkle.framework) ;;
    *) plugins="$plugins${plugins:+;}$framework" ;;
  esac
done
if cmake --preset macos \
  -DVORNIX_FLUTTER_MACOS_FRAMEWORK="$frameworks/FlutterMacOS.framework" \
  -DVORNIX_FLUTTER_APP_FRAMEWORK="$frameworks/App.framework" \
  -DVORNIX_SPARKLE_FRAMEWORK="$sparkle/Sparkle.framework" \
  -DVORNIX_PLUGIN_FRAMEWORKS="$plugins" \
  -DVORNIX_CODESIGN_IDENTITY="${VORNIX_CODESIGN_IDENTITY:--}" >"$work/build.log" 2>&1 &&
  cmake --build --preset macos >>"$work/build.log" 2>&1; then
  verdict PASS build "$app"
else
  verdict FAIL build "see $work/build.log"
  finish
fi

# --- exported symbol ---------------------------------------------------------------------------
missing=""
for arch in $(lipo -archs "$executable"); do
  nm -gU -arch "$arch" "$executable" >"$work/exported-$arch.txt" 2>&1
  grep -q ' _bitsdojo_window_api$' "$work/exported-$arch.txt" || missing="$missing $arch"
done
if [ -z "$missing" ]; then
  verdict PASS "exported symbol" "_bitsdojo_window_api on $(lipo -archs "$executable")"
else
  verdict FAIL "exported symbol" "_bitsdojo_window_api not exported on$missing"
fi

# --- signature ---------------------------------------------------------------------------------
if codesign --verify --strict --deep --verbose=1 "$app" >"$work/codesign.log" 2>&1; then
  verdict PASS signature "codesign --verify --strict accepts the bundle"
else
  verdict FAIL signature "$(tail -n 1 "$work/codesign.log")"
fi
if [ "${VORNIX_CODESIGN_IDENTITY:--}" = "-" ]; then
  verdict SKIP gatekeeper "signed ad hoc; Gatekeeper accepts only a Developer ID signature (notarised)"
elif spctl --assess --type execute --verbose "$app" >"$work/spctl.log" 2>&1; then
  verdict PASS gatekeeper "$(tr '\n' ' ' <"$work/spctl.log")"
else
  verdict FAIL gatekeeper "$(tr '\n' ' ' <"$work/spctl.log")"
fi

# --- plug-in classes ---------------------------------------------------------------------------
# A Swift class's symbol carries its mangled name, which ends in the class's own name.
unbound=""
nm -m -arch "$(uname -m)" "$executable" >"$work/symbols.txt" 2>/dev/null
for class in DeviceInfoPlusMacosPlugin FlutterLocalNotificationsPlugin MenubarPlugin FLTPackageInfoPlusPlugin \
  PathProviderPlugin SentryFlutterPlugin SharedPreferencesPlugin SystemTrayPlugin UrlLauncherPlugin; do
  from=$(grep -E "_OBJC_CLASS_\\\$_[A-Za-z0-9_]*$class( |$)" "$work/symbols.txt" | sed -n 's/.*(from \([^)]*\)).*/\1/p' | head -n 1)
  if [ -z "$from" ] || [ ! -d "$app/Contents/Frameworks/$from.framework" ]; then
    unbound="$unbound $class${from:+ (from $from)}"
  fi
done
if [ -z "$unbound" ]; then
  verdict PASS "plug-in classes" "all nine from frameworks in Contents/Frameworks"
else
  verdict FAIL "plug-in classes" "not from an embedded framework:$unbound"
fi

# --- minimum systems ---------------------------------------------------------------------------
target=$(sed -n 's/^CMAKE_OSX_DEPLOYMENT_TARGET:[A-Z]*=//p' "$build/CMakeCache.txt")
stated=$(/usr/libexec/PlistBuddy -c "Print :LSMinimumSystemVersion" "$app/Contents/Info.plist" 2>/dev/null)
above=""
binaries=("$executable")
for framework in "$app"/Contents/Frameworks/*.framework; do
  binaries+=("$framework/Versions/Current/$(basename "$framework" .framework)")
done
for library in "$app"/Contents/Frameworks/*.dylib; do
  [ -f "$library" ] && binaries+=("$library")
done
for binary in "${binaries[@]}"; do
  for minimum in $(vtool -show-build "$binary" 2>/dev/null | awk '
      /cmd LC_VERSION_MIN_MACOSX/ { old = 1 }
      /cmd LC_BUILD_VERSION/ { old = 0 }
      $1 == "minos" { print $2 }
      old && $1 == "version" { print $2; old = 0 }'); do
    if version_above "$minimum" "$target"; then
      above="$above $(basename "$binary") ($minimum)"
    fi
  done
done
if [ "$stated" != "$target" ]; then
  verdict FAIL "minimum systems" "LSMinimumSystemVersion is $stated, the deployment target $target"
elif [ -n "$above" ]; then
  verdict FAIL "minimum systems" "built for a newer macOS than $target:$above"
else
  verdict PASS "minimum systems" "${#binaries[@]} binaries need nothing newer than $target"
fi

# --- backend tests -----------------------------------------------------------------------------
if ctest --preset macos >"$work/ctest.log" 2>&1; then
  verdict PASS "backend tests" "$(grep -E 'tests passed' "$work/ctest.log")"
else
  verdict FAIL "backend tests" "$(grep -E 'tests passed|tests failed' "$work/ctest.log") (see $work/ctest.log)"
fi

# --- launch, status item, URLs -----------------------------------------------------------------
# waitForLine FILE TEXT SECONDS: whether FILE shows the line TEXT within SECONDS.
waitForLine() {
  local waited=0
  while [ "$waited" -lt "$3" ]; do
    grep -qxF "$2" "$1" 2>/dev/null && return 0
    sleep 1
    waited=$((waited + 1))
  done
  grep -qxF "$2" "$1" 2>/dev/null
}

# statusWindows PID: how many windows the process has at the status bar's level (25).
statusWindows() {
  osascript -l JavaScript -e "
    ObjC.import('CoreGraphics');
    const windows = ObjC.deepUnwrap(ObjC.castRefToObject(
        \$.CGWindowListCopyWindowInfo(\$.kCGWindowListOptionAll, \$.kCGNullWindowID)));
    windows.filter(w => w.kCGWindowOwnerPID === $1 && w.kCGWindowLayer === 25).length;" 2>/dev/null
}

# Another copy running (an installed one) would receive the URLs in place of this build's.
others=$(pgrep -x "Vornix OS" | tr '\n' ' ')
if [ -n "$others" ]; then
  verdict FAIL launch "another Vornix OS is running (process $others); quit it and run again"
  finish
fi
log="$work/running.log"
"$executable" >"$log" 2>&1 &
pid=$!
sleep 10
if kill -0 "$pid" 2>/dev/null && grep -qxF "finished launching" "$log"; then
  verdict PASS launch "running after ten seconds, \"finished launching\" printed"
  items=$(statusWindows "$pid")
  if [ "${items:-0}" -ge 1 ]; then
    verdict PASS "status item" "$items window(s) at the status bar's level"
  else
    verdict FAIL "status item" "no window of the process at the status bar's level"
  fi
  url="vornix-os://acceptance-while-running"
  open -a "$app" "$url"
  if waitForLine "$log" "Fatal error: the URL has no query: $url" 20; then
    verdict PASS "URL while running" "$url reached the handler"
  else
    verdict FAIL "URL while running" "$url did not reach the handler within 20 seconds"
  fi
else
  verdict FAIL launch "not running ten seconds after its start: $(tail -n 1 "$log")"
  verdict SKIP "status item" "the application is not running"
  verdict SKIP "URL while running" "the application is not running"
fi
kill "$pid" 2>/dev/null
wait "$pid" 2>/dev/null
sleep 1

url="vornix-os://acceptance-cold-launch"
cold="$work/cold.log"
: >"$cold"
open -n --stdout "$cold" --stderr "$cold" -a "$app" "$url"
if waitForLine "$cold" "Fatal error: the URL has no query: $url" 30; then
  verdict PASS "URL on a cold launch" "$url reached the handler"
else
  verdict FAIL "URL on a cold launch" "$url did not reach the handler within 30 seconds"
  # Still running without it: the only copy running is the one started here.
  for started in $(pgrep -x "Vornix OS"); do
    kill "$started"
  done
fi

finish
