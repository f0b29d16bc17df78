#!/usr/bin/env bash
# make screenshots: the screenshot tour (tools/screenshots/) under a virtual
# display, saving a PNG of each screen into docs/screenshots/.
#   tools/screenshots.sh <build folder> [scene prefix]
set -euo pipefail
build=${1:-build}
cd "$(dirname "$0")/.."
if ! command -v xvfb-run >/dev/null 2>&1; then
  echo "screenshots: installing xvfb and xauth"
  if [[ $(id -u) -eq 0 ]]; then as_root=(); else as_root=(sudo); fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends xvfb xauth
fi
mkdir -p docs/screenshots
# A screen of 1280 by 1024 in 24-bit colour; the windows open centred on it.
xvfb-run -a -s "-screen 0 1280x1024x24" "$build/tools/screenshot_tour" docs/screenshots "${2:-}"
