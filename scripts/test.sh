#!/usr/bin/env bash
# Builds and runs every test: the normal build, then AddressSanitizer + UndefinedBehaviorSanitizer,
# then ThreadSanitizer. Pass preset names to run only those (for example: scripts/test.sh default).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh
presets=("$@")
[ ${#presets[@]} -gt 0 ] || presets=(default asan tsan)
for preset in "${presets[@]}"; do
  echo "=== $preset ==="
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j2
  ctest --preset "$preset"
done
