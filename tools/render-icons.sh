#!/usr/bin/env bash
# Renders the application icon's PNG sizes from its SVG with rsvg-convert
# (librsvg2-bin). The PNGs are kept in the repository, so a build needs no
# renderer; run this again after changing the SVG and commit the result.
set -euo pipefail
cd "$(dirname "$0")/../data/desktop/icons"
svg=org.corvalin.corvalin.svg
for size in 16 24 32 48 64 128 256; do
  mkdir -p "${size}x${size}"
  rsvg-convert --width "$size" --height "$size" "$svg" --output "${size}x${size}/org.corvalin.corvalin.png"
done
