#!/usr/bin/env bash
# make atspi: the program's first screen on a live accessibility (AT-SPI)
# bus under a virtual display, read by tools/atspi/first_screen.py as a
# screen reader reads it.
#   tools/atspi-check.sh <build folder>
set -euo pipefail
build=$(cd "${1:-build}" && pwd)
cd "$(dirname "$0")/.."
if ! command -v xvfb-run >/dev/null 2>&1 || ! command -v dbus-run-session >/dev/null 2>&1 ||
   [[ ! -x /usr/libexec/at-spi-bus-launcher ]] || ! /usr/bin/python3 -c 'import pyatspi' 2>/dev/null; then
  echo "atspi: installing xvfb, xauth, dbus, at-spi2-core and python3-pyatspi"
  if [[ $(id -u) -eq 0 ]]; then as_root=(); else as_root=(sudo); fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
    xvfb xauth dbus dbus-x11 at-spi2-core python3-pyatspi gir1.2-atspi-2.0
fi
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
mkdir -p "$home/.config/Orvanta" "$home/Documents/Orvanta/Data" "$home/Documents/Orvanta/Work"
printf '[Common]\nDataDir=%s/\nWorkDir=%s/\n[Corvalin]\nConfigured=YES\n' \
  "$home/Documents/Orvanta/Data" "$home/Documents/Orvanta/Work" > "$home/.config/Orvanta/Orvanta.ini"
xvfb-run -a -s "-screen 0 1366x768x24" dbus-run-session -- bash -c '
  /usr/libexec/at-spi-bus-launcher --launch-immediately >/dev/null 2>&1 &
  sleep 1
  HOME="$1" XDG_CONFIG_HOME="$1/.config" QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$2/bin/corvalin" >/dev/null 2>&1 &
  program=$!
  status=0
  /usr/bin/python3 tools/atspi/first_screen.py || status=$?
  kill "$program" 2>/dev/null || true
  exit "$status"' atspi "$home" "$build"
