#!/usr/bin/env bash
# expect_failure.sh STATUS PATTERN COMMAND...: the command ends with STATUS, prints nothing on
# standard output, and says one line on standard error that matches PATTERN.
set -uo pipefail
status=$1 pattern=$2
shift 2
out=$(mktemp) err=$(mktemp)
trap 'rm -f "$out" "$err"' EXIT
"$@" >"$out" 2>"$err" </dev/null
got=$?
echo "exit status $got; said: $(cat "$err")"
[ "$got" -eq "$status" ] || { echo "expected exit status $status"; exit 1; }
[ ! -s "$out" ] || { echo "standard output: $(cat "$out")"; exit 1; }
[ "$(wc -l <"$err")" -eq 1 ] || { echo "expected one line"; exit 1; }
grep -Eq "$pattern" "$err" || { echo "expected to match: $pattern"; exit 1; }
