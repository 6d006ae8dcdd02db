#!/usr/bin/env bash
# embed_and_sign.sh APP IDENTITY FRAMEWORK...: copies each framework into APP/Contents/Frameworks
# (ditto keeps the frameworks' version links), with the libraries (*.dylib) that lie beside the
# frameworks given (the Swift runtime libraries Xcode places in the Flutter application's
# Frameworks folder for its Swift plug-ins, which refer to them through @rpath), and signs, from the
# inside out, the code in each framework, each library, each framework, then the application. IDENTITY "-" signs ad hoc, which runs on the
# machine that built it; a Developer ID identity signs with the hardened runtime and a secure
# timestamp, as notarisation requires. Written for the bash 3.2 that macOS ships.
set -euo pipefail
app=$1
identity=$2
shift 2

frameworks="$app/Contents/Frameworks"
rm -rf "$frameworks"
mkdir -p "$frameworks"
folders=""
for framework in "$@"; do
  ditto "$framework" "$frameworks/$(basename "$framework")"
  folder=$(dirname "$framework")
  case "
$folders
" in
    *"
$folder
"*) ;;
    *)
      folders="$folders
$folder"
      for library in "$folder"/*.dylib; do
        if [ -f "$library" ]; then
          ditto "$library" "$frameworks/$(basename "$library")"
        fi
      done
      ;;
  esac
done

sign() {
  if [ "$identity" = "-" ]; then
    codesign --force --sign - "$@"
  else
    codesign --force --sign "$identity" --options runtime --timestamp "$@"
  fi
}

for library in "$frameworks"/*.dylib; do
  if [ -f "$library" ]; then
    sign "$library"
  fi
done
for framework in "$frameworks"/*.framework; do
  if [ ! -d "$framework" ]; then
    continue
  fi
  name=$(basename "$framework" .framework)
  version="$framework/Versions/Current"
  # Nested code first: XPC services (keeping their own entitlements), helper applications and
  # helper executables beside the framework's own binary, as Sparkle ships them.
  for service in "$version"/XPCServices/*.xpc; do
    if [ -d "$service" ]; then
      sign --preserve-metadata=entitlements "$service"
    fi
  done
  for helper in "$version"/*.app; do
    if [ -d "$helper" ]; then
      sign "$helper"
    fi
  done
  for helper in "$version"/*; do
    if [ -f "$helper" ] && [ -x "$helper" ] && [ "$(basename "$helper")" != "$name" ]; then
      sign "$helper"
    fi
  done
  sign "$framework"
done
sign "$app"
codesign --verify --strict --verbose=1 "$app"
