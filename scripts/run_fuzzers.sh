#!/usr/bin/env bash
# Fuzzes every nkfoundation_<name>_fuzz of a build for a bounded time, split
# evenly among them, starting from fuzz/corpus/<name>/ when present.
#
#   run_fuzzers.sh BUILD_DIR [TOTAL_SECONDS]   (default: $NKF_FUZZ_SECONDS or 60)
#
# New inputs go to BUILD_DIR/fuzz-corpus/<name>/, never into the repository;
# a crashing input is kept in BUILD_DIR/fuzz-artifacts/. Exits non-zero when
# any fuzzer finds a crash, a leak or a timeout.
set -euo pipefail

build_dir=$(realpath "${1:?build folder of the fuzz preset}")
total=${2:-${NKF_FUZZ_SECONDS:-60}}
repo=$(cd "$(dirname "$0")/.." && pwd)

mapfile -t fuzzers < <(find "$build_dir" -maxdepth 1 -type f -executable -name 'nkfoundation_*_fuzz' | sort)
if ((${#fuzzers[@]} == 0)); then
  echo "run_fuzzers.sh: no fuzzers in $build_dir" >&2
  exit 1
fi
each=$((total / ${#fuzzers[@]}))
((each >= 1)) || each=1

failed=0
for fuzzer in "${fuzzers[@]}"; do
  name=$(basename "$fuzzer")
  name=${name#nkfoundation_}
  name=${name%_fuzz}
  corpus=$build_dir/fuzz-corpus/$name
  artifacts=$build_dir/fuzz-artifacts/$name/
  log=$build_dir/fuzz-$name.log
  mkdir -p "$corpus" "$artifacts"
  seeds=()
  [[ -d $repo/fuzz/corpus/$name ]] && seeds=("$repo/fuzz/corpus/$name")

  # -timeout: one input running that long counts as a hang.
  if "$fuzzer" -max_total_time="$each" -timeout=25 -print_final_stats=1 \
      -artifact_prefix="$artifacts" "$corpus" "${seeds[@]}" >"$log" 2>&1; then
    echo "fuzz $name: ok, $(grep -o 'stat::number_of_executed_units: *[0-9]*' "$log" | grep -o '[0-9]*$') runs in ${each}s"
  else
    echo "fuzz $name: FAILED (log $log, inputs in $artifacts)"
    tail -n 40 "$log"
    failed=1
  fi
done
exit $failed
