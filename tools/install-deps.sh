#!/usr/bin/env bash
# Installs what building and testing Corvalin needs on Debian (and its
# derivatives), and nothing when all of it is there already. apt-get runs as
# root directly, and through sudo for anybody else. With the argument "fuzz"
# it also installs clang and its runtime libraries (libFuzzer among them),
# which only the fuzz targets need (the ordinary build takes only the header
# of the runtime that the targets read their inputs with, FuzzedDataProvider,
# to replay the kept inputs in the test suite); with "bench", hyperfine and pandas, which
# the benchmarks of make bench need (pandas for the scripted peer).
set -euo pipefail

PACKAGES=(cmake ninja-build g++ qt6-base-dev libsqlite3-dev libgtest-dev libclang-rt-dev)
# The suite checks the desktop entry, the metainfo and the manual page with
# the tools that read them; make package finds the package's libraries with
# dpkg-shlibdeps, which looks at the programs through file.
PACKAGES+=(desktop-file-utils appstream man-db groff-base dpkg-dev file)
if [[ "${1:-}" == "fuzz" ]]; then
  PACKAGES+=(clang)
fi
if [[ "${1:-}" == "bench" ]]; then
  PACKAGES+=(hyperfine python3-pandas)
fi

if ! command -v dpkg-query >/dev/null 2>&1; then
  echo "install-deps: no dpkg here; please install the equivalents of: ${PACKAGES[*]}" >&2
  tools=(cmake ninja g++)
  [[ "${1:-}" == "fuzz" ]] && tools+=(clang++)
  for tool in "${tools[@]}"; do
    command -v "$tool" >/dev/null 2>&1 || { echo "install-deps: $tool is missing" >&2; exit 1; }
  done
  exit 0
fi

missing=()
for package in "${PACKAGES[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$package")
done

if [[ ${#missing[@]} -eq 0 ]]; then
  exit 0
fi

echo "install-deps: installing ${missing[*]}"
if [[ $(id -u) -eq 0 ]]; then
  as_root=()
elif command -v sudo >/dev/null 2>&1; then
  as_root=(sudo)
else
  echo "install-deps: need root or sudo to install: ${missing[*]}" >&2
  exit 1
fi
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
