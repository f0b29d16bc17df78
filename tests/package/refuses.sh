#!/usr/bin/env bash
# refuses.sh CHECK FILE FLAW: the check must refuse the file (status 1) and
# say the flaw it was given, so that a check passing everything cannot pass.
set -uo pipefail
check=$1 file=$2 flaw=$3
said=$("$check" "$file" 2>&1)
status=$?
if [[ $status -ne 1 ]]; then
  printf '%s\n' "$said"
  echo "refuses: $check ended with status $status on $file, not 1"
  exit 1
fi
if [[ "$said" != *"$flaw"* ]]; then
  printf '%s\n' "$said"
  echo "refuses: $check did not say \"$flaw\" about $file"
  exit 1
fi
