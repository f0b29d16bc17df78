#!/usr/bin/env bash
# Times the load of the working table as a whole process: an unattended run
# whose template lacks a required column stops right after the load (and the
# replay), with "Plot ID column is required." on standard error. Files of
# 1,000, 10,000 and 32,767 lines with 30 columns.
# Usage: bench/run_load_bench.sh [BUILD_DIR]; needs corvalin and gen_tree_file.
set -euo pipefail

source "$(dirname "$0")/bench_common.sh"
bench_start gen_tree_file "${1:-build}"

# A template with the comma format and one column named: no Plot ID.
printf '[COLUMN_DELIMITERS]\r\nFixedWidth=NO\r\nComma=YES\r\nTextQualifier="\r\n[FORMAT_INFO]\r\nColumnHeader2=Tree ID\r\nColumnUnits2=\r\n' \
  >"$home/Work/loadonly.cnv"

for lines in 1000 10000 32767; do
  "$generator" "$lines" 30 "$home/trees$lines.csv"
  rm -f "$home/Work/result.txt"
  message=$("${run_env[@]}" "$program" "$home/trees$lines.csv" "$home/out.tre" loadonly 2>&1 >/dev/null || true)
  echo "== $lines lines, 30 columns: result \"$(bench_result)\", message \"$(echo "$message" | tr -d '\r' | head -1)\""
  bench_time "load$lines" "$home/trees$lines.csv" "$home/out.tre" loadonly
done
