#!/usr/bin/env bash
# Times the whole unattended run as a process on generated tree files of
# 1,000, 10,000 and 32,767 lines with ten assigned columns, and the peak
# memory of the largest. Usage: bench/run_unattended_bench.sh [BUILD_DIR]
# The build dir needs the targets corvalin and gen_translation_input.
set -euo pipefail

source "$(dirname "$0")/bench_common.sh"
bench_start gen_translation_input "${1:-build}"

for lines in 1000 10000 32767; do
  "$generator" "$lines" "$home/trees$lines.csv" "$home/Work/bench.cnv"
  rm -f "$home/Work/result.txt" "$home/trees$lines.tre"
  # One run first: the result must be a success, or the timing means nothing.
  "${run_env[@]}" "$program" "$home/trees$lines.csv" "$home/trees$lines.tre" bench || true
  echo "== $lines lines: result \"$(bench_result)\", $( (wc -l <"$home/trees$lines.tre") 2>/dev/null || echo 0) records"
  bench_time "run$lines" "$home/trees$lines.csv" "$home/trees$lines.tre" bench
done

echo "== peak memory, 32767 lines"
"${run_env[@]}" /usr/bin/time -v "$program" "$home/trees32767.csv" "$home/trees32767.tre" bench 2>&1 \
  | grep -E "Maximum resident set size|Elapsed" || true

# The split of the 32,767-line run: the same file stopped after the load (a
# template without Plot ID), after the validation (its last line carries an
# unknown species, found at the end of the row pass), and run to the end.
echo "== split of the 32767-line run"
sed 's/^OrvanVariant=NI/OrvanVariant=NI/; s/^ColumnHeader1=Plot ID/ColumnHeader1=? column/' "$home/Work/bench.cnv" >"$home/Work/noplot.cnv"
{ head -n 32766 "$home/trees32767.csv"; printf '820,7,1.5,1,XX,12.0,0.5,80,40,10\r\n'; } >"$home/badlast.csv"
echo " load (stops at \"Plot ID column is required.\"):"
bench_time split-load "$home/trees32767.csv" "$home/split.tre" noplot
echo " load + validation (stops at \"Invalid Species Code.\" on the last line):"
bench_time split-validate "$home/badlast.csv" "$home/split.tre" bench
echo " load + validation + translation:"
bench_time split-all "$home/trees32767.csv" "$home/split.tre" bench
