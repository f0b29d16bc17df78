# Shared by the whole-process benchmarks: a scratch HOME with the Data and
# Work folders set up, the environment of an unattended run without a
# display, and hyperfine's median of a command. Source it, then bench_start.

bench_setup_home() {
  home=$(mktemp -d /tmp/corvalin-bench.XXXXXX)
  trap 'rm -rf "$home"' EXIT
  mkdir -p "$home/Data" "$home/Work" "$home/.config/Orvanta"
  printf '[Common]\r\nDataDir=%s/Data/\r\nWorkDir=%s/Work/\r\n' "$home" "$home" >"$home/.config/Orvanta/Orvanta.ini"
  run_env=(env -u DISPLAY -u WAYLAND_DISPLAY HOME="$home" XDG_CONFIG_HOME="$home/.config")
}

# bench_result: the line of result.txt, or "no result file".
bench_result() { (tr -d '\r' <"$home/Work/result.txt") 2>/dev/null || echo "no result file"; }

# bench_time LABEL ARGS...: runs the program with ARGS 15 times after 2
# warm-up runs and prints the median, mean and minimum.
bench_time() {
  local label=$1
  shift
  hyperfine -N --ignore-failure --warmup 2 --runs 15 --export-json "$home/$label.json" \
    "${run_env[*]} $program $*" >/dev/null 2>&1
  python3 - "$home/$label.json" <<'PY'
import json, sys
r = json.load(open(sys.argv[1]))["results"][0]
print(f"   median {r['median']*1000:.1f} ms  (mean {r['mean']*1000:.1f} ± {r['stddev']*1000:.1f} ms, min {r['min']*1000:.1f} ms)")
PY
}

bench_require() {
  for tool in "$@"; do
    [[ -x $tool ]] || { echo "missing $tool: build it first" >&2; exit 1; }
  done
  command -v hyperfine >/dev/null || { echo "hyperfine is needed (apt-get install hyperfine)" >&2; exit 1; }
}

# bench_start GENERATOR [BUILD_DIR]: finds corvalin and the input generator
# GENERATOR of the build dir (default "build"), checks that they and
# hyperfine are there, and sets up the scratch HOME.
bench_start() {
  build=$(cd "${2:-build}" && pwd)
  program="$build/bin/corvalin"
  generator="$build/bench/$1"
  bench_require "$program" "$generator"
  bench_setup_home
}
