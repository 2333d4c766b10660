#!/usr/bin/env bash
# Batches of designs: shards that together do every design once, a bad design that fails
# alone, a rerun that skips what is done, and a turntable cut off by a signal that the next
# run finishes with the frames a run without interruption draws.
set -u
cli="$1"
designs="$2"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
cd "$work"
mkdir library
cp "$designs"/*.asc library/
printf 'GemCad 5.0\ng 96 0\na 0 0.3 0\n' >library/open.asc  # no pavilion: refused
count=$(ls library | wc -l)

for i in 0 1 2; do
  "$cli" batch --designs library --out results --shard $i/3 -- --size 60 >>lines.jsonl
  [ $? -le 1 ] || fail "shard $i/3 ended badly"
done
python3 - "$count" <<'PY' || fail "the shards' JSON lines"
import json, sys
lines = [json.loads(l) for l in open("lines.jsonl")]
assert len(lines) == int(sys.argv[1]), len(lines)
assert len({l["name"] for l in lines}) == len(lines)
for l in lines:
    ok = l["status"] == "done"
    assert ok == (l["name"] != "open.asc"), l
    assert (ok and l["files"][0].endswith("picture.png")) or "pavilion" in l.get("error", "") \
        or "facets" in l.get("error", ""), l
PY
"$cli" batch --designs library --out results -- --size 60 >again.jsonl
[ $? -eq 1 ] || fail "a batch with a design that fails should exit 1"
[ "$(grep -c '"skipped"' again.jsonl)" -eq $((count - 1)) ] || fail "a rerun should skip the done"

# A turntable interrupted and run again, against one run straight through.
printf 'library/pear.asc\n' >one.txt
"$cli" batch --designs one.txt --out cut --job turntable --frames 12 -- --size 80 --threads 1 \
  >/dev/null &
batch=$!
for _ in $(seq 200); do
  [ -e "cut/pear-"*/"turn_F[02].gif" ] 2>/dev/null && break
  sleep 0.05
done
kill -INT $batch
wait $batch
status=$?
[ $status -eq 3 ] || [ $status -eq 0 ] || fail "an interrupted batch exited $status"
[ -n "${BATCH_TEST_VERBOSE:-}" ] && echo "interrupted batch exited $status"
"$cli" batch --designs one.txt --out cut --job turntable --frames 12 -- --size 80 >/dev/null \
  || fail "the rerun of a cut-off turntable"
mkdir straight
"$cli" capture --design library/pear.asc --sqi straight/turn.sqi --frames 12 --size 80 \
  >/dev/null 2>&1 && "$cli" gif --sqi straight/turn.sqi --out straight/turn.gif >/dev/null \
  || fail "a straight capture"
for frame in straight/*.gif; do
  cmp -s "$frame" cut/pear-*/"$(basename "$frame")" || fail "$(basename "$frame") differs"
done

[ $failures -eq 0 ] && echo "batch: all checks passed"
exit $((failures > 0))
