#!/usr/bin/env bash
# Times the whole unattended run as a process on generated tree files of
# 1,000, 10,000 and 32,767 lines with ten assigned columns, and the peak
# memory of the largest. Usage: bench/run_unattended_bench.sh [BUILD_DIR]
# The build dir needs the targets corvalin and gen_translation_input.
set -euo pipefail

build=${1:-build}
build=$(cd "$build" && pwd)
program="$build/bin/corvalin"
generator="$build/bench/gen_translation_input"
for tool in "$program" "$generator"; do
  [[ -x $tool ]] || { echo "missing $tool: build corvalin and gen_translation_input first" >&2; exit 1; }
done
command -v hyperfine >/dev/null || { echo "hyperfine is needed" >&2; exit 1; }

home=$(mktemp -d /tmp/corvalin-unattended-bench.XXXXXX)
trap 'rm -rf "$home"' EXIT
mkdir -p "$home/Data" "$home/Work" "$home/.config/Orvanta"
printf '[Common]\r\nDataDir=%s/Data/\r\nWorkDir=%s/Work/\r\n' "$home" "$home" >"$home/.config/Orvanta/Orvanta.ini"

run_env=(env -u DISPLAY -u WAYLAND_DISPLAY HOME="$home" XDG_CONFIG_HOME="$home/.config")

for lines in 1000 10000 32767; do
  "$generator" "$lines" "$home/trees$lines.csv" "$home/Work/bench.cnv"
  rm -f "$home/Work/result.txt" "$home/trees$lines.tre"
  # One run first: the result must be a success, or the timing means nothing.
  "${run_env[@]}" "$program" "$home/trees$lines.csv" "$home/trees$lines.tre" bench || true
  result=$( (tr -d '\r' <"$home/Work/result.txt") 2>/dev/null || echo "no result file")
  echo "== $lines lines: result \"$result\", $( (wc -l <"$home/trees$lines.tre") 2>/dev/null || echo 0) records"
  hyperfine -N --ignore-failure --warmup 2 --runs 15 --export-json "$home/times$lines.json" \
    "${run_env[*]} $program $home/trees$lines.csv $home/trees$lines.tre bench" >/dev/null
  python3 - "$home/times$lines.json" "$lines" <<'PY'
import json, sys
r = json.load(open(sys.argv[1]))["results"][0]
print(f"   median {r['median']*1000:.1f} ms  (mean {r['mean']*1000:.1f} ± {r['stddev']*1000:.1f} ms, min {r['min']*1000:.1f} ms)")
PY
done

echo "== peak memory, 32767 lines"
"${run_env[@]}" /usr/bin/time -v "$program" "$home/trees32767.csv" "$home/trees32767.tre" bench 2>&1 \
  | grep -E "Maximum resident set size|Elapsed" || true
