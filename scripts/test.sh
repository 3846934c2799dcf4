#!/usr/bin/env bash
# Builds and runs every test: the normal build, then AddressSanitizer + UndefinedBehaviorSanitizer,
# then ThreadSanitizer, then the extra stages (Windows cross build under Wine, fuzzing, the scenarios
# against Linux's HID core in a virtual machine) when their
# scripts exist. Pass preset names to run only those (for example: scripts/test.sh default).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh ccache
# ccache keeps compile results between runs on this machine: a CI run after a small change compiles
# only what changed, in every preset.
launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache)
presets=("$@")
run_stages=0
if [ ${#presets[@]} -eq 0 ]; then
  presets=(default asan tsan)
  run_stages=1
fi
for preset in "${presets[@]}"; do
  echo "=== $preset ==="
  cmake --preset "$preset" "${launcher[@]}" >/dev/null
  cmake --build --preset "$preset" -j2
  ctest --preset "$preset"
done
if [ "$run_stages" -eq 1 ]; then
  for stage in scripts/test-windows.sh scripts/test-fuzz.sh scripts/test-kernel.sh; do
    if [ -x "$stage" ]; then
      echo "=== $(basename "$stage" .sh) ==="
      "./$stage"
    fi
  done
fi
