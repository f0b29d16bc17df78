#!/usr/bin/env bash
# Runs the windows' tests and the end-to-end tests of a build over and over:
# ROUNDS times one test at a time, then ROUNDS times two at a time, and stops
# at the first failure with the test's name and output. A test that passes
# once but not every time waits on something other than the program (the
# clock, the machine's speed, another test); run this before a change to a
# window lands. It is not part of CI, whose time goes to the whole suite.
#
#   tools/soak.sh BUILD [ROUNDS]
set -euo pipefail

build=$1
rounds=${2:-20}
labels='^(desktop|e2e)$'
count=$(ctest --test-dir "$build" -N -L "$labels" | sed -n 's/^Total Tests: //p')
if [[ -z "$count" || "$count" -eq 0 ]]; then
  echo "soak: no desktop or end-to-end tests in $build" >&2
  exit 1
fi
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1}
runs=0
for jobs in 1 2; do
  for round in $(seq 1 "$rounds"); do
    log=$(mktemp)
    if ! ctest --test-dir "$build" -L "$labels" -j "$jobs" --output-on-failure --stop-on-failure >"$log" 2>&1; then
      echo "soak: round $round with $jobs at a time failed after $runs whole runs:"
      grep -E '\*\*\*|Failed|\(Failed\)|Exception|Timeout' "$log" | grep -v '^ *Start' || true
      echo "----- its output -----"
      cat "$log"
      rm -f "$log"
      exit 1
    fi
    rm -f "$log"
    runs=$((runs + 1))
    echo "soak: round $round, $jobs at a time: $count tests passed"
  done
done
echo "soak: $runs whole runs of $count tests, no failure"
