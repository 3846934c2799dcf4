#!/usr/bin/env bash
# Installing or updating the plug-in lays out the fat plug-in folder and never replaces a pilot's
# DRAV.INI; a first install gets the commented sample as its DRAV.INI.
set -euo pipefail
build="$1"
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

cmake --install "$build" --prefix "$stage/first" >/dev/null
test -f "$stage/first/DRAV/lin_x64/DRAV.xpl" || { echo "FAIL: no DRAV/lin_x64/DRAV.xpl"; exit 1; }
cmp -s "$stage/first/DRAV/DRAV.INI" "$stage/first/DRAV/DRAV.sample.INI" \
  || { echo "FAIL: a first install should start from the sample"; exit 1; }

mkdir -p "$stage/update/DRAV"
printf '[GFP8_1]\r\nFunction1=LANDING_LTS\r\n' > "$stage/update/DRAV/DRAV.INI"
cp "$stage/update/DRAV/DRAV.INI" "$stage/pilot.ini"
cmake --install "$build" --prefix "$stage/update" >/dev/null
cmp -s "$stage/update/DRAV/DRAV.INI" "$stage/pilot.ini" \
  || { echo "FAIL: the update replaced the pilot's DRAV.INI"; exit 1; }
echo "ok: install lays out DRAV/lin_x64/DRAV.xpl and keeps an existing DRAV.INI"
