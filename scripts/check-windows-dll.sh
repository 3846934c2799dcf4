#!/usr/bin/env bash
# Checks the Windows plug-in DLL as the simulator's loader will meet it:
# - a 64-bit PE image (pei-x86-64);
# - exports exactly the five XPlugin entry points;
# - imports only from the DLLs every X-Plane machine has (below);
# - imports from XPLM_64.dll and XPWidgets_64.dll exactly the names of our .def files in sdk/win/,
#   so that the lists stay the plug-in's true imports;
# - never imports the functions it looks up by name at run time (XPLMFindSymbol and the command
#   functions): a direct import would keep it from loading into a simulator that lacks them.
# Usage: scripts/check-windows-dll.sh path/to/DRAV.xpl
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
dll="${1:?usage: $0 path/to/DRAV.xpl}"
objdump="${OBJDUMP:-x86_64-w64-mingw32-objdump}"

# The DLLs the plug-in may import from, lower case. gdi32.dll is the one addition: the hot-plug
# notification window's class takes the white stock brush (GetStockObject) as the device layer
# registers it. The C runtime is msvcrt.dll (MinGW's default) or the Universal CRT's forwarders.
allowed_dlls='^(xplm_64|xpwidgets_64|hid|setupapi|opengl32|kernel32|user32|gdi32|msvcrt|api-ms-win-crt-[a-z0-9-]+)\.dll$'
entry_points=$'XPluginDisable\nXPluginEnable\nXPluginReceiveMessage\nXPluginStart\nXPluginStop'

fail() { echo "FAIL: $*" >&2; exit 1; }

[ -f "$dll" ] || fail "no such file: $dll"
dump=$("$objdump" -p "$dll") || fail "$objdump cannot read $dll"

grep -q 'file format pei-x86-64' <<<"$dump" || fail "$dll is not a 64-bit PE image"

# Export names: the lines "[   n] Name" of the name pointer table.
exports=$(awk '/^\[Ordinal\/Name Pointer\] Table/ {inside = 1; next}
               inside && NF == 0 {inside = 0}
               inside && $1 == "[" {print $3; next}
               inside && $1 ~ /^\[/ {print $2}' <<<"$dump" | sort)
[ "$exports" = "$entry_points" ] || fail "exports differ from the five entry points:
$exports"

# Imported DLL names, and the names imported from one of them.
imported_dlls=$(awk '/DLL Name:/ {print tolower($3)}' <<<"$dump" | sort -u)
imports_of() {
  awk -v dll="$(tr '[:upper:]' '[:lower:]' <<<"$1")" '
    /DLL Name:/ {inside = (tolower($3) == dll); next}
    inside && NF == 0 {inside = 0}
    inside && NF == 3 && $1 ~ /^[0-9a-f]+$/ {print $3}' <<<"$dump" | sort -u
}
def_names() { awk 'toupper($1) != "LIBRARY" && toupper($1) != "EXPORTS" && $1 !~ /^;/ && NF {print $1}' "$1" | sort -u; }

unexpected=$(grep -Ev "$allowed_dlls" <<<"$imported_dlls" || true)
[ -z "$unexpected" ] || fail "imports from DLLs outside the allowed set:
$unexpected"

for lib in XPLM_64 XPWidgets_64; do
  def="$root/sdk/win/$lib.def"
  [ -f "$def" ] || fail "missing $def"
  stale=$(comm -13 <(imports_of "$lib.dll") <(def_names "$def"))
  [ -z "$stale" ] || fail "$lib.def lists names the plug-in no longer imports (remove them):
$stale"
done

# XPLMFindSymbol comes from GetProcAddress, and the command functions through it.
run_time_only=$'XPLMCommandBegin\nXPLMCommandEnd\nXPLMCommandOnce\nXPLMFindCommand\nXPLMFindSymbol'
direct=$(comm -12 <(imports_of XPLM_64.dll) <(sort -u <<<"$run_time_only"))
[ -z "$direct" ] || fail "imports directly what must be looked up at run time:
$direct"

echo "ok: $(basename "$dll") is PE32+, exports the 5 entry points, imports from $(tr '\n' ' ' <<<"$imported_dlls")"
echo "    $(imports_of XPLM_64.dll | wc -l) XPLM and $(imports_of XPWidgets_64.dll | wc -l) widget functions, none of the run-time-only ones"
