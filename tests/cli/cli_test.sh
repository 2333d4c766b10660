#!/usr/bin/env bash
# The command line's contract: exit statuses, and output that other programs can read.
set -u
cli="$1"
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
failures=0
expect_status() {  # status, then the command's arguments
  local want=$1; shift
  "$cli" "$@" >"$out/stdout" 2>"$out/stderr"
  local got=$?
  if [ "$got" -ne "$want" ]; then
    echo "FAIL: kirameki-cli $* exited $got, expected $want"; failures=$((failures + 1))
  elif [ "$want" -eq 2 ] && [ "$(wc -l <"$out/stderr")" -ne 1 ]; then
    echo "FAIL: kirameki-cli $* should explain itself in one line:"; cat "$out/stderr"
    failures=$((failures + 1))
  fi
}

expect_status 0 tables
python3 -c 'import json,sys; t=json.load(open(sys.argv[1])); assert t["stones"][7]["index100"]==189 and len(t["cuts"])==28 and len(t["polygonColours"])==9' "$out/stdout" \
  || { echo "FAIL: tables JSON"; failures=$((failures + 1)); }
expect_status 0 model --cut 12 --json
python3 -c 'import json,sys; m=json.load(open(sys.argv[1])); assert m["cut"]==12 and m["name"]=="Double RoseCut" and len(m["vertices"])==26 and len(m["faces"])==48' "$out/stdout" \
  || { echo "FAIL: model JSON"; failures=$((failures + 1)); }
expect_status 0 model --cut 0 --obj "$out/stone.obj"
[ "$(grep -c '^f ' "$out/stone.obj")" -eq 57 ] || { echo "FAIL: OBJ faces"; failures=$((failures + 1)); }
for bad in "22" "28" "-1" "x" "3.5"; do expect_status 2 model --cut "$bad" --json; done
expect_status 2 model --cut 0
expect_status 2 model --cut 0 --json --bogus
expect_status 2 nonsense
expect_status 1 model --cut 0 --obj /nonexistent-folder/stone.obj

if [ "$failures" -eq 0 ]; then echo "cli: all checks passed"; fi
exit $((failures > 0))
