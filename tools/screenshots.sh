#!/usr/bin/env bash
# make screenshots: the screenshot tour (tools/screenshots/) under a virtual
# display, saving a PNG of each screen into docs/screenshots/.
#   tools/screenshots.sh <build folder> [scene prefix]
set -euo pipefail
build=${1:-build}
cd "$(dirname "$0")/.."
if ! command -v xvfb-run >/dev/null 2>&1 || ! command -v openbox >/dev/null 2>&1; then
  echo "screenshots: installing xvfb, xauth and openbox"
  if [[ $(id -u) -eq 0 ]]; then as_root=(); else as_root=(sudo); fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends xvfb xauth openbox
fi
mkdir -p docs/screenshots
# A screen of 1280 by 1024 in 24-bit colour; the windows open centred on it.
xvfb-run -a -s "-screen 0 1280x1024x24" "$build/tools/screenshot_tour" docs/screenshots "${2:-}"
# The wizard's screens in turn as a person sees them on a laptop's screen of
# 1366x768 under a window manager, title bars and all (desktop-*.png).
if [[ -z "${2:-}" || "40-wizard-placement" == "${2}"* ]]; then
  xvfb-run -a -s "-screen 0 1366x768x24" bash -c \
    'openbox & wm=$!; sleep 1; "$0" docs/screenshots 40; status=$?; kill $wm; exit $status' \
    "$build/tools/screenshot_tour"
fi
