#!/usr/bin/env bash
# The desktop entry as desktop-file-validate reads it. The tool fails only on
# errors; a warning or a hint (a deprecated key, a second main category)
# fails here too, so the entry stays clean in every menu.
set -uo pipefail
entry=$1
command -v desktop-file-validate >/dev/null || { echo "check-desktop-entry: desktop-file-validate is missing (desktop-file-utils)" >&2; exit 2; }
said=$(desktop-file-validate "$entry" 2>&1)
status=$?
if [[ $status -ne 0 || -n "$said" ]]; then
  printf '%s\n' "$said"
  echo "check-desktop-entry: $entry is not clean (status $status)"
  exit 1
fi
