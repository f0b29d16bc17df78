#!/usr/bin/env bash
# The program beside a scripted peer: the pandas script of bench/peer/ does
# the same translation of the same 32,767-line file of ten columns, and both
# run in one hyperfine run; prints each median and how many times faster the
# program is. The peer's tree list must equal the program's byte for byte, or
# the comparison means nothing.
# Usage: bench/run_peer_bench.sh [BUILD_DIR]; needs corvalin and gen_translation_input.
set -euo pipefail

source "$(dirname "$0")/bench_common.sh"
bench_start gen_translation_input "${1:-build}"
peer="$(cd "$(dirname "$0")" && pwd)/peer/translate.py"
# Debian's own Python, where Debian's pandas is installed.
python=/usr/bin/python3

"$generator" 32767 "$home/trees.csv" "$home/Work/bench.cnv"
rm -f "$home/Work/result.txt"
"${run_env[@]}" "$program" "$home/trees.csv" "$home/program.tre" bench
"$python" "$peer" "$home/trees.csv" "$home/peer.tre"
if ! cmp -s "$home/program.tre" "$home/peer.tre"; then
  echo "the peer's tree list differs from the program's: the comparison would mean nothing" >&2
  exit 1
fi
echo "== 32767 lines, 10 columns: result \"$(bench_result)\", $(wc -l <"$home/program.tre") records, the peer's identical"

hyperfine -N --warmup 3 --runs 30 --export-json "$home/peer.json" \
  -n corvalin "${run_env[*]} $program $home/trees.csv $home/program.tre bench" \
  -n pandas "$python $peer $home/trees.csv $home/peer.tre" >/dev/null 2>&1
"$python" - "$home/peer.json" <<'PY'
import json, sys
runs = {r["command"]: r for r in json.load(open(sys.argv[1]))["results"]}
program, peer = runs["corvalin"], runs["pandas"]
for name, r in (("corvalin", program), ("pandas peer", peer)):
    print(f" {name:12} median {r['median']*1000:7.1f} ms  (mean {r['mean']*1000:.1f} ± {r['stddev']*1000:.1f} ms, min {r['min']*1000:.1f} ms)")
print(f" corvalin is {peer['median'] / program['median']:.1f} times faster than the peer (ratio of medians)")
PY
