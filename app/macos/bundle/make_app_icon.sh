#!/usr/bin/env bash
# make_app_icon.sh SVG OUTPUT.icns: the application icon in every size the system asks for,
# rendered from one drawing with rsvg-convert. On a Mac, Apple's iconutil packs an icon set;
# elsewhere png2icns (icnsutils) writes the same sizes.
set -euo pipefail
svg=$1
output=$2
work=$(mktemp -d "${TMPDIR:-/tmp}/vornix-icon-XXXXXX")
trap 'rm -rf "$work"' EXIT

if command -v iconutil >/dev/null; then
  set_dir="$work/AppIcon.iconset"
  mkdir "$set_dir"
  for size in 16 32 128 256 512; do
    rsvg-convert -w "$size" -h "$size" -o "$set_dir/icon_${size}x${size}.png" "$svg"
    rsvg-convert -w $((size * 2)) -h $((size * 2)) -o "$set_dir/icon_${size}x${size}@2x.png" "$svg"
  done
  iconutil -c icns -o "$output" "$set_dir"
else
  pngs=()
  for size in 16 32 48 128 256 512 1024; do
    rsvg-convert -w "$size" -h "$size" -o "$work/icon_$size.png" "$svg"
    pngs+=("$work/icon_$size.png")
  done
  png2icns "$output" "${pngs[@]}" >/dev/null
fi
