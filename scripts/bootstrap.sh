#!/usr/bin/env bash
# Installs the Debian packages listed in scripts/packages.txt that are not installed yet.
# Silent when everything is already there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

missing=()
while read -r package; do
  [[ -z "$package" || "$package" == \#* ]] && continue
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$package")
  fi
done < "$here/packages.txt"

[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "bootstrap: installing ${missing[*]}"
sudo=""
[[ $(id -u) -ne 0 ]] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
