#!/usr/bin/env bash
# Headers that declare XPLMDrawString's text as char* (the older official SDK's declaration; the 4.x
# one takes const char*) still build the plug-in: every call passes writable text. The sources that
# draw strings are compiled, syntax only, against a copy of sdk/ with that one declaration changed.
set -euo pipefail
compiler="$1"
source_dir="$2"
work="$3"
generated="$4"  # the headers the build generates (base/Version.h)
rm -rf "$work"
mkdir -p "$work"
cp "$source_dir"/sdk/*.h "$work"/
sed -i 's/const char\* inChar,/char* inChar,/' "$work/XPLMGraphics.h"
if ! grep -q '                             char\* inChar,' "$work/XPLMGraphics.h"; then
  echo "FAIL: XPLMDrawString's declaration in sdk/XPLMGraphics.h has changed; update this test"; exit 1
fi
callers=$(grep -rl 'XPLMDrawString(' "$source_dir/src")
for file in $callers; do
  "$compiler" -std=c++20 -fsyntax-only -DLIN=1 -DAPL=0 -DIBM=0 -DXPLM200=1 -DXPLM210=1 -DXPLM_DEPRECATED=1 \
    -I"$work" -I"$source_dir/src" -I"$generated" "$file"
done
echo "ok: $(echo "$callers" | wc -l) drawing sources build against char* text"
