#!/usr/bin/env bash
# The installed Linux plug-in loads on every glibc from the floor that docs/install.md states: no
# imported symbol asks for a newer glibc version, and no C++ runtime is needed beside glibc (the
# systems at the floor have an older libstdc++ than the build machine).
set -euo pipefail
xpl="$1"
install_doc="$2"
floor=$(grep -oE 'glibc [0-9]+\.[0-9]+ or newer' "$install_doc" | head -n 1 | grep -oE '[0-9]+\.[0-9]+' || true)
if [ -z "$floor" ]; then echo "FAIL: $install_doc states no \"glibc X.Y or newer\""; exit 1; fi
versions=$(objdump -T "$xpl" | grep -oE '\(?GLIBC_[0-9]+(\.[0-9]+)+\)?' | tr -d '()' | sed 's/GLIBC_//' | sort -u -V)
highest=$(echo "$versions" | tail -n 1)
if [ "$(printf '%s\n%s\n' "$floor" "$highest" | sort -V | tail -n 1)" != "$floor" ]; then
  echo "FAIL: the plug-in needs glibc $highest, above the stated floor $floor, through:"
  objdump -T "$xpl" | grep -E "GLIBC_$highest[^0-9.]" || true
  exit 1
fi
runtime=$(objdump -T "$xpl" | grep -E 'GLIBCXX_|CXXABI_|GCC_[0-9]' || true)
if [ -n "$runtime" ]; then echo "FAIL: the plug-in imports from the C++ runtime:"; echo "$runtime"; exit 1; fi
needed=$(objdump -p "$xpl" | awk '$1 == "NEEDED" {print $2}' | grep -vE '^(libc|libm|libdl|libpthread)\.so\.[0-9]+$|^ld-linux-x86-64\.so\.2$' || true)
if [ -n "$needed" ]; then echo "FAIL: the plug-in needs more than glibc:"; echo "$needed"; exit 1; fi
if objdump -h "$xpl" | grep -q '\.debug_info'; then echo "FAIL: the installed plug-in is not stripped"; exit 1; fi
if ! objdump -h "$xpl" | grep -q '\.gnu_debuglink'; then echo "FAIL: the plug-in names no debug file"; exit 1; fi
echo "ok: highest glibc version $highest (floor $floor), no C++ runtime imported, stripped"
