#!/usr/bin/env bash
# embed_and_sign.sh off a Mac, with stand-ins for Apple's ditto and codesign: the frameworks land
# in Contents/Frameworks with their version links, and the signing goes from the inside out
# (nested services, helpers, each framework, the application, then a strict verification), ad hoc
# without the hardened runtime, with an identity with it and a secure timestamp.
#   embed_and_sign_test.sh EMBED_AND_SIGN_SCRIPT
set -euo pipefail
script=$1
work=$(mktemp -d /tmp/vornix-sign-XXXXXX)
trap 'rm -rf "$work"' EXIT
fail() { echo "embed and sign: $*"; exit 1; }

mkdir -p "$work/bin"
cat >"$work/bin/ditto" <<'STANDIN'
#!/usr/bin/env bash
cp -a "$1" "$2"
STANDIN
cat >"$work/bin/codesign" <<'STANDIN'
#!/usr/bin/env bash
echo "$*" >>"$CODESIGN_LOG"
STANDIN
chmod +x "$work/bin/ditto" "$work/bin/codesign"

framework() {  # framework FOLDER NAME VERSION: a framework laid out as Apple's tools lay it out
  local root="$1/$2.framework"
  mkdir -p "$root/Versions/$3/Resources"
  echo binary >"$root/Versions/$3/$2"
  chmod +x "$root/Versions/$3/$2"
  ln -s "$3" "$root/Versions/Current"
  ln -s "Versions/Current/$2" "$root/$2"
  ln -s "Versions/Current/Resources" "$root/Resources"
}
framework "$work/kit" FlutterMacOS A
framework "$work/kit" Sparkle B
sparkle="$work/kit/Sparkle.framework/Versions/B"
mkdir -p "$sparkle/XPCServices/Downloader.xpc" "$sparkle/XPCServices/Installer.xpc" "$sparkle/Updater.app"
echo helper >"$sparkle/Autoupdate"
chmod +x "$sparkle/Autoupdate"
echo data >"$sparkle/Resources/notes.txt"
# Swift runtime libraries beside the Flutter application's frameworks, and nothing beside Sparkle's.
echo library >"$work/kit/libswiftAppKit.dylib"
echo library >"$work/kit/libswiftCore.dylib"

app="$work/Vornix OS.app"
mkdir -p "$app/Contents/MacOS" "$app/Contents/Frameworks/Stale.framework"

run() {  # run IDENTITY: the script on a fresh log
  export CODESIGN_LOG="$work/codesign-$2.log"
  : >"$CODESIGN_LOG"
  PATH="$work/bin:$PATH" bash "$script" "$app" "$1" "$work/kit/FlutterMacOS.framework" "$work/kit/Sparkle.framework" \
    >/dev/null
}

run - adhoc
frameworks="$app/Contents/Frameworks"
[[ ! -e "$frameworks/Stale.framework" ]] || fail "a framework of an earlier build stays"
[[ -L "$frameworks/Sparkle.framework/Versions/Current" ]] || fail "the version link became a copy"
[[ -x "$frameworks/FlutterMacOS.framework/Versions/A/FlutterMacOS" ]] || fail "FlutterMacOS is not embedded"
[[ -f "$frameworks/libswiftAppKit.dylib" && -f "$frameworks/libswiftCore.dylib" ]] ||
  fail "the Swift libraries beside the frameworks are not embedded"
embedded="$frameworks/Sparkle.framework/Versions/Current"
# The libraries, then the frameworks in name order, each after the code nested in it.
expected="--force --sign - $frameworks/libswiftAppKit.dylib
--force --sign - $frameworks/libswiftCore.dylib
--force --sign - $frameworks/FlutterMacOS.framework
--force --sign - --preserve-metadata=entitlements $embedded/XPCServices/Downloader.xpc
--force --sign - --preserve-metadata=entitlements $embedded/XPCServices/Installer.xpc
--force --sign - $embedded/Updater.app
--force --sign - $embedded/Autoupdate
--force --sign - $frameworks/Sparkle.framework
--force --sign - $app
--verify --strict --verbose=1 $app"
actual=$(cat "$work/codesign-adhoc.log")
[[ "$actual" == "$expected" ]] || fail "ad hoc signing was
$actual
and not
$expected"

run "Developer ID Application: Example (TEAM123456)" identity
grep -qx -- "--force --sign Developer ID Application: Example (TEAM123456) --options runtime --timestamp $app" \
  "$work/codesign-identity.log" || fail "an identity does not sign with the hardened runtime and a timestamp"
[[ $(grep -c -- "--options runtime --timestamp" "$work/codesign-identity.log") == 9 ]] ||
  fail "not every signature with an identity has the hardened runtime"
echo "embed and sign: ok"
