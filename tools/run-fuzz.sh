#!/usr/bin/env bash
# Runs the fuzz targets of a fuzz build (make fuzz builds it): each target
# first replays its kept findings (fuzz/regressions/<target>/), then fuzzes
# for SECONDS from its seeds (fuzz/corpus/<target>/), JOBS targets at a time.
# New corpus units, findings and logs go to BUILD/fuzz-work/, never into the
# source tree. Prints one line per target: status, runs and seconds, as
# libFuzzer's final statistics give them.
#
#   tools/run-fuzz.sh BUILD SECONDS JOBS [fuzz_target ...]
set -euo pipefail

build=$(cd "$1" && pwd)
seconds=$2
jobs=$3
shift 3
root=$(cd "$(dirname "$0")/.." && pwd)
work="$build/fuzz-work"
mkdir -p "$work/corpus" "$work/findings" "$work/logs"

targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
  for program in "$build"/fuzz/fuzz_*; do
    [[ -x "$program" && -f "$program" ]] && targets+=("$(basename "$program")")
  done
fi

run_one() {
  local name=$1 short=${1#fuzz_}
  local program="$build/fuzz/$name" log="$work/logs/$name.log"
  local regressions=("$root/fuzz/regressions/$short"/*)
  if [[ -e "${regressions[0]}" ]]; then
    if ! "$program" "${regressions[@]}" >"$work/logs/$name.regressions.log" 2>&1; then
      echo "$name: a kept finding fails again, see $work/logs/$name.regressions.log"
      return 1
    fi
  fi
  mkdir -p "$work/corpus/$short"
  local status=0
  "$program" -max_total_time="$seconds" -max_len=4096 -print_final_stats=1 \
    -artifact_prefix="$work/findings/$name-" "$work/corpus/$short" "$root/fuzz/corpus/$short" >"$log" 2>&1 ||
    status=$?
  local runs secs
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  secs=$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log" | tail -1)
  if [[ $status -eq 0 ]]; then
    echo "$name: no finding, ${runs:-?} runs in ${secs:-?} s"
  else
    echo "$name: FINDING (status $status), see $log and $work/findings/"
  fi
  return $status
}
export -f run_one
export build seconds root work

printf '%s\n' "${targets[@]}" | xargs -P "$jobs" -I{} bash -c 'run_one "$@"' _ {}
