#!/usr/bin/env bash
# The manual page as man and groff render it, with their warnings on. Both
# tools end with status 0 after a warning; any word on standard error fails
# here.
set -uo pipefail
page=$1
for tool in man groff; do
  command -v "$tool" >/dev/null || { echo "check-man-page: $tool is missing (man-db, groff-base)" >&2; exit 2; }
done
said=$(MANWIDTH=80 man --warnings -l "$page" 2>&1 >/dev/null)
man_status=$?
said+=$(groff -man -ww -z "$page" 2>&1)
groff_status=$?
if [[ $man_status -ne 0 || $groff_status -ne 0 || -n "$said" ]]; then
  printf '%s\n' "$said"
  echo "check-man-page: $page is not clean (man status $man_status, groff status $groff_status)"
  exit 1
fi
