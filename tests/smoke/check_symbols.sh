#!/usr/bin/env bash
# The plug-in exports exactly the five entry points and leaves every SDK function to the simulator.
set -euo pipefail
xpl="$1"
defined=$(nm -D --defined-only "$xpl" | awk '{print $3}' | grep -E '^(XPlugin|XPLM|XP)' | sort)
expected=$(printf '%s\n' XPluginDisable XPluginEnable XPluginReceiveMessage XPluginStart XPluginStop)
if [ "$defined" != "$expected" ]; then
  echo "FAIL: exported SDK-related symbols differ from the five entry points:"; echo "$defined"; exit 1
fi
undefined_xplm=$(nm -D --undefined-only "$xpl" | awk '{print $2}' | grep -E '^XPLM' | sort)
if [ -z "$undefined_xplm" ]; then echo "FAIL: no undefined XPLM symbols"; exit 1; fi
if nm -D --defined-only "$xpl" | awk '{print $3}' | grep -qE '^XPLM'; then
  echo "FAIL: the plug-in defines an XPLM symbol"; exit 1
fi
other=$(nm -D --defined-only "$xpl" | awk '$2 ~ /[TDBW]/ {print $3}' | grep -vE '^(XPlugin[A-Za-z]+|_init|_fini|__bss_start|_edata|_end)$' || true)
if [ -n "$other" ]; then echo "FAIL: the plug-in exports more than its entry points:"; echo "$other"; exit 1; fi
# The optional entry points are resolved by name at run time, so that a simulator without one still
# loads the plug-in: none of them may be imported directly.
optional_table="${2:-}"
if [ -n "$optional_table" ]; then
  optional=$(grep -oE 'Resolve\(findSymbol, "[A-Za-z]+"' "$optional_table" | grep -oE '"[A-Za-z]+"' | tr -d '"' | sort)
  if [ -z "$optional" ]; then echo "FAIL: no optional entry points found in $optional_table"; exit 1; fi
  direct=$(comm -12 <(echo "$optional") <(echo "$undefined_xplm"))
  if [ -n "$direct" ]; then echo "FAIL: optional entry points imported directly:"; echo "$direct"; exit 1; fi
fi
echo "ok: 5 entry points exported, $(echo "$undefined_xplm" | wc -l) XPLM functions left to the simulator"
