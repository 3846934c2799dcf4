#!/usr/bin/env bash
# The Windows stage of the tests: cross-builds the windows preset with MinGW-w64, checks the
# plug-in DLL's exports and imports, runs the unit tests and every scenario as Windows programs
# under Wine (headless, in a fresh prefix under build/windows), then builds the release zip and
# checks that it holds every file.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh g++-mingw-w64-x86-64-posix wine64 googletest zip ccache
cmake --preset windows -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache >/dev/null
nice -n 10 cmake --build --preset windows -j2
# The DLL's exports and imports are checked by the ctest windows.dll_check.
# No display: Wine must not try to open windows on one (the device layer's notification window is
# never shown and needs none).
env -u DISPLAY -u WAYLAND_DISPLAY ctest --preset windows
./scripts/package
