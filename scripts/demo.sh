#!/usr/bin/env bash
# Builds dravsim and runs its built-in demo scenario.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh
cmake --preset default >/dev/null
cmake --build --preset default --target dravsim -j2
exec ./build/default/dravsim "$@"
