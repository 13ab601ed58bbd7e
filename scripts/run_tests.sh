#!/usr/bin/env bash
# Runs every test: the native suites (plain, under AddressSanitizer and
# UndefinedBehaviorSanitizer, the threaded code under ThreadSanitizer, and
# built for x86-64-v3), both Windows builds under Wine, the fuzzers for a
# bounded time and a smoke run of the benchmarks, then prints a summary.
# Installs the Debian packages that the chosen phases need first. Exits
# non-zero when anything failed.
#
#   scripts/run_tests.sh [PHASE...]
#       phases: dev asan tsan x86-64-v3 win32 win64 fuzz bench (default all)
#
#   NKF_FUZZ_SECONDS  total fuzzing time, split among the fuzzers (default 60)
#   NKF_JOBS          parallel compile jobs (default: the number of cores)
#
# A failed phase does not stop the others, so one run shows everything broken.
# A phase that cannot run on this machine says SKIPPED and why.
set -uo pipefail
cd "$(dirname "$0")/.."

all_phases=(dev asan tsan x86-64-v3 win32 win64 fuzz bench)
phases=("$@")
((${#phases[@]})) || phases=("${all_phases[@]}")
jobs=${NKF_JOBS:-$(nproc)}
logs=build/logs
mkdir -p "$logs"

tests_passed=0
tests_failed=0
failed_phases=0
summary=()
phase_note=

# --- Building and counting ---------------------------------------------------

# Configures and builds a preset. On failure says where in one line, with the
# log's last lines, so the first real error is not buried under what follows.
build() {
  local preset=$1 step
  for step in configure build; do
    local log=$logs/$preset-$step.log
    local command=(cmake --preset "$preset")
    [[ $step == build ]] && command=(cmake --build --preset "$preset" --parallel "$jobs")
    if ! "${command[@]}" >"$log" 2>&1; then
      echo "$preset: the $step step FAILED; its tests were not run (log $log):"
      grep -E -m 15 -A 3 'error|Error|ERROR' "$log" || tail -n 20 "$log"
      phase_note="$step failed"
      return 1
    fi
  done
  echo "$preset: built"
}

# Runs a native test preset: each GoogleTest case is its own CTest test.
run_ctest() {
  local log=$logs/ctest-$1.log
  ctest --preset "$1" 2>&1 | tee "$log"
  local status=${PIPESTATUS[0]}
  local counts
  counts=$(grep -Eo '[0-9]+ tests failed out of [0-9]+' "$log" | tail -n 1)
  if [[ $counts =~ ^([0-9]+)\ tests\ failed\ out\ of\ ([0-9]+)$ ]]; then
    ((tests_failed += BASH_REMATCH[1]))
    ((tests_passed += BASH_REMATCH[2] - BASH_REMATCH[1]))
  fi
  return "$status"
}

# Runs a Windows test preset. There a CTest test is a whole test executable
# (each Wine process start costs), so the test cases are counted from the
# results each executable leaves in gtest-results/; an executable that left
# none (it crashed) counts as one failure. Wine's start and stop steps are
# scaffolding, not tests.
run_wine_ctest() {
  local preset=$1 results=build/$1/gtest-results log=$logs/ctest-$1.log
  rm -rf "$results"
  ctest --preset "$preset" 2>&1 | tee "$log"
  local status=${PIPESTATUS[0]}
  local name result xml tests failures errors
  while read -r name result; do
    [[ $name == wine_start || $name == wine_stop ]] && continue
    # A test disabled in the build, with its reason there, is not counted.
    [[ $result == Disabled ]] && continue
    xml=$results/$name.xml
    if [[ -f $xml ]]; then
      read -r tests failures errors < <(sed -nE \
        's/.*<testsuites tests="([0-9]+)" failures="([0-9]+)" disabled="[0-9]+" errors="([0-9]+)".*/\1 \2 \3/p' "$xml")
      ((tests_failed += failures + errors))
      ((tests_passed += tests - failures - errors))
      # A crash after the results were written still fails the executable.
      [[ $result == Passed ]] || ((tests_failed += 1))
    elif [[ $result == Passed ]]; then
      ((tests_passed += 1))
    else
      ((tests_failed += 1))
    fi
  done < <(sed -nE -e 's/^ *[0-9]+\/[0-9]+ Test +#[0-9]+: ([^ ]+) \.+ *\*\*\*Not Run \(Disabled\).*/\1 Disabled/p;t' \
                   -e 's/^ *[0-9]+\/[0-9]+ Test +#[0-9]+: ([^ ]+) \.+ *(\*\*\*)?([A-Za-z]+).*/\1 \3/p' "$log")
  return "$status"
}

suite() {
  build "$1" || return 1
  run_ctest "$1"
}

# --- What this machine can run -----------------------------------------------

# Wine runs a 32-bit Windows program as a 32-bit Linux process. Whether the
# kernel starts those at all is a property of the machine; a missing or broken
# Wine is a fault of the installation and fails the phase.
kernel_runs_32bit() {
  local loader=/lib/ld-linux.so.2
  if [[ ! -e $loader ]]; then
    echo "the 32-bit runtime ($loader, from wine32:i386) is missing" >&2
    return 2
  fi
  "$loader" --version >/dev/null 2>&1 && return 0
  return 1
}

wine_works() {
  local loader=$1
  if [[ ! -x $loader ]] || ! "$loader" --version >/dev/null 2>&1; then
    echo "wine: $loader is missing or does not start" >&2
    return 1
  fi
}

# --- Phases ------------------------------------------------------------------

phase_dev() { suite dev; }
phase_asan() { suite asan; }
phase_tsan() { suite tsan; }
phase_x86-64-v3() {
  # The results must not change when the compiler may use AVX2 and fused
  # multiply-add; only a processor that has them can run such a build.
  if ! /lib64/ld-linux-x86-64.so.2 --help 2>/dev/null | grep -q 'x86-64-v3 (supported'; then
    phase_note="SKIPPED: this processor does not support x86-64-v3"
    return 3
  fi
  suite x86-64-v3
}
phase_win32() {
  # The 32-bit DLL is the product: it is always built, so its layout checks
  # run at compile time on every machine.
  build win32 || return 1
  local runs
  kernel_runs_32bit
  runs=$?
  if ((runs == 1)); then
    phase_note="SKIPPED tests: this kernel cannot start 32-bit programs (win64 runs them)"
    return 3
  fi
  ((runs == 0)) || return 1
  wine_works /usr/lib/wine/wine || return 1
  run_wine_ctest win32
}
phase_win64() {
  build win64 || return 1
  wine_works /usr/lib/wine/wine64 || return 1
  run_wine_ctest win64
}
phase_fuzz() {
  # The tests replay the seed corpora; then fuzz for the time given.
  suite fuzz || return 1
  scripts/run_fuzzers.sh build/fuzz "${NKF_FUZZ_SECONDS:-60}"
}
phase_bench() {
  # Only that they run: a minimal time per benchmark, no numbers worth keeping.
  build release || return 1
  build/release/nkfoundation_bench --benchmark_min_time=0.01
}

# Which package groups of scripts/install_deps.sh each phase needs.
declare -A phase_groups=(
  [dev]="dev binding" [asan]="dev binding" [tsan]=dev [x86-64-v3]=dev
  [win32]=win32 [win64]=win64 [fuzz]=fuzz [bench]=bench
)

run_phase() {
  local name=$1 start=$SECONDS result=ok status
  phase_note=
  echo
  echo "======== $name"
  "phase_$name"
  status=$?
  case $status in
    0) ;;
    3) result=SKIPPED ;;
    *) result=FAILED; ((failed_phases += 1)) ;;
  esac
  summary+=("$(printf '%-10s %-8s %5ds  %s' "$name" "$result" $((SECONDS - start)) "$phase_note")")
}

groups=()
for name in "${phases[@]}"; do
  if [[ -z ${phase_groups[$name]+set} ]]; then
    echo "run_tests.sh: unknown phase '$name' (${all_phases[*]})" >&2
    exit 2
  fi
  read -ra phase_group_list <<<"${phase_groups[$name]}"
  groups+=("${phase_group_list[@]}")
done

start=$SECONDS
scripts/install_deps.sh "${groups[@]}" || exit 1
for name in "${phases[@]}"; do
  run_phase "$name"
done

echo
echo "======== summary (logs in $logs)"
printf '%s\n' "${summary[@]}"
printf 'total      %d phase(s) failed, %ds\n' "$failed_phases" $((SECONDS - start))
echo "tests: $tests_passed passed, $tests_failed failed"
((failed_phases == 0))
