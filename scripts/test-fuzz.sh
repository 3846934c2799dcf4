#!/usr/bin/env bash
# Fuzzing stage: builds the libFuzzer targets with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer in build/fuzz, runs each for a bounded time over its seed corpus
# (written afresh by tests/fuzz/make_seeds.py), and fails on the first crash, leak, hang or broken
# property. FUZZ_SECONDS sets the time per target (default 40; eight targets keep the stage under
# eight minutes on two cores).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/deps.sh clang libclang-rt-14-dev python3

seconds="${FUZZ_SECONDS:-40}"
build=build/fuzz
targets=(fuzz_ini fuzz_ini_index fuzz_device_input fuzz_encoders fuzz_find_function fuzz_custom_binding fuzz_digit_field fuzz_scenario)

# ccache, when present, shares compile results with the other builds of this machine.
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_C_COMPILER_LAUNCHER=ccache); fi
CC=clang CXX=clang++ cmake -S . -B "$build" "${launcher[@]}" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DDRAV_FUZZ=ON \
  -DDRAV_SANITIZE=address,undefined -DDRAV_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j2 --target drav_fuzzers

bin="$PWD/$build/tests/fuzz"
work="$build/runs"
rm -rf "$work"
mkdir -p "$work"
python3 tests/fuzz/make_seeds.py "$work/seeds"
status=0
for target in "${targets[@]}"; do
  corpus="$work/$target/corpus"
  mkdir -p "$corpus"
  # The seeds stay untouched: the run grows a copy.
  if [ -d "$work/seeds/$target" ]; then cp -r "$work/seeds/$target/." "$corpus/"; fi
  echo "=== $target (${seconds}s) ==="
  if ! (cd "$work/$target" &&
        "$bin/$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
          -print_final_stats=1 corpus >"$target.log" 2>&1); then
    echo "FAILED: $target; the input that broke it is in $work/$target/ (crash-*, timeout-*, leak-*)"
    tail -n 40 "$work/$target/$target.log"
    status=1
  else
    grep -E "^stat::number_of_executed_units|^stat::new_units_added" "$work/$target/$target.log" || true
  fi
done
# The INI target's scratch files (one folder per fuzzing process, in memory when /dev/shm exists).
rm -rf /dev/shm/drav-fuzz-ini-* /tmp/drav-fuzz-ini-* 2>/dev/null || true
exit "$status"
