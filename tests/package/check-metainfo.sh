#!/usr/bin/env bash
# The software centre's description as appstreamcli validates it, offline and
# pedantic. The tool passes a file with warnings, infos or pedantic notes; here
# only its plain verdict of success passes.
set -uo pipefail
metainfo=$1
command -v appstreamcli >/dev/null || { echo "check-metainfo: appstreamcli is missing (appstream)" >&2; exit 2; }
said=$(LC_ALL=C appstreamcli validate --no-net --pedantic "$metainfo" 2>&1)
status=$?
# The verdict's first character is a check mark, or "?" in the C locale.
if [[ $status -ne 0 || $(printf '%s\n' "$said" | wc -l) -ne 1 || "$said" != *" Validation was successful." ]]; then
  printf '%s\n' "$said"
  echo "check-metainfo: $metainfo is not clean (status $status)"
  exit 1
fi
