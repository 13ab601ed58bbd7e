#!/usr/bin/env bash
# Runs every test: builds and tests the dev, asan and win32 (under Wine)
# presets, fuzzes for a bounded time, smoke-runs the benchmarks, then prints a
# summary. Exits non-zero when anything failed.
#
#   scripts/run_tests.sh [PHASE...]   phases: dev asan win32 fuzz bench (default all)
#
#   NKF_FUZZ_SECONDS  total fuzzing time, split among the fuzzers (default 60)
#   NKF_JOBS          parallel compile jobs (default: the number of cores)
#
# A failed phase does not stop the others, so one run shows everything broken.
set -uo pipefail
cd "$(dirname "$0")/.."

phases=("$@")
((${#phases[@]})) || phases=(dev asan win32 fuzz bench)
jobs=${NKF_JOBS:-$(nproc)}
logs=build/logs
mkdir -p "$logs"

tests_passed=0
tests_failed=0
failed_phases=0
summary=()
summary_note=

# Runs a test preset, adding its counts to the totals.
run_ctest() {
  local log=$logs/ctest-$1.log
  ctest --preset "$1" --output-on-failure 2>&1 | tee "$log"
  local status=${PIPESTATUS[0]}
  local counts
  counts=$(grep -Eo '[0-9]+ tests failed out of [0-9]+' "$log" | tail -n 1)
  if [[ $counts =~ ^([0-9]+)\ tests\ failed\ out\ of\ ([0-9]+)$ ]]; then
    ((tests_failed += BASH_REMATCH[1]))
    ((tests_passed += BASH_REMATCH[2] - BASH_REMATCH[1]))
  fi
  return "$status"
}

# The build presets keep going past a failed target (ninja -k 0), and so do
# the phases: what did build is still tested. The phase fails either way.
build() {
  cmake --preset "$1" && cmake --build --preset "$1" --parallel "$jobs"
}

suite() {
  local status=0
  build "$1" || status=$?
  run_ctest "$1" || status=$?
  return "$status"
}

phase_dev() { suite dev; }
phase_asan() { suite asan; }
phase_win32() {
  # Wine runs 32-bit Windows programs as 32-bit Linux processes. A kernel
  # built without 32-bit support cannot start them at all: then the Windows
  # build is still compiled, and its tests are reported as not run.
  if ! /usr/lib/wine/wineserver32 --version >/dev/null 2>&1; then
    echo "run_tests.sh: this kernel cannot run 32-bit programs; building win32 without running its tests"
    summary_note="win32 tests NOT RUN: the kernel cannot execute 32-bit programs"
    build win32
    return
  fi
  suite win32
}
phase_fuzz() {
  # The tests replay the seed corpora; then fuzz for the time given.
  local status=0
  suite fuzz || status=$?
  scripts/run_fuzzers.sh build/fuzz "${NKF_FUZZ_SECONDS:-60}" || status=$?
  return "$status"
}
phase_bench() {
  # Only that they run: a minimal time per benchmark, no numbers worth keeping.
  local status=0
  build release || status=$?
  if [[ -x build/release/nkfoundation_bench ]]; then
    build/release/nkfoundation_bench --benchmark_min_time=0.01 || status=$?
  fi
  return "$status"
}

run_phase() {
  local name=$1 start=$SECONDS result=ok
  echo
  echo "======== $name"
  "phase_$name" || { result=FAILED; ((failed_phases += 1)); }
  summary+=("$(printf '%-6s %-6s %5ds' "$name" "$result" $((SECONDS - start)))")
}

start=$SECONDS
scripts/install_deps.sh || exit 1
for name in "${phases[@]}"; do
  if [[ $(type -t "phase_$name") != function ]]; then
    echo "run_tests.sh: unknown phase '$name'" >&2
    exit 2
  fi
  run_phase "$name"
done

echo
echo "======== summary (logs in $logs)"
printf '%s\n' "${summary[@]}"
printf 'total  %d phase(s) failed, %ds\n' "$failed_phases" $((SECONDS - start))
[[ -z $summary_note ]] || echo "note: $summary_note"
echo "tests: $tests_passed passed, $tests_failed failed"
((failed_phases == 0))
