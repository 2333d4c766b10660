#!/usr/bin/env bash
# What the command line does to files when things go wrong: a full or failing disk, names at
# the file system's limit, two runs on one record, a file it may not read, and kills at any
# moment. Nothing is ever lost, and no run claims a success it did not have.
set -u
cli="$1"
faults="$2"
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
temporaries() { find "$1" -name '.*.tmp-*' | wc -l; }
frames_done() { od -An -tu4 -j4 -N4 "$1" | tr -d ' '; }  # the record's frames captured

# Injected faults at each step of a write: the old file stays, one clear line says why.
"$cli" settings --file "$out/Setting.ini" --write-defaults
printf '\3' | dd of="$out/Setting.ini" bs=1 seek=4 conv=notrunc status=none  # stone 3
cp "$out/Setting.ini" "$out/before.ini"
cp "$out/before.ini" "$out/shot.png"  # an old file in the picture's place
injected=0
for tmpfile in "" 1; do
  for fault in write:ENOSPC write:EIO fsync:ENOSPC fsync:EIO rename:EIO linkat:ENOSPC; do
    [ -n "$tmpfile" ] && [ "${fault%%:*}" = linkat ] && continue  # no link without them
    for command in "settings --file $out/Setting.ini --write-defaults" \
                   "render --size 32 --fire off --out $out/shot.png"; do
      KIRAMEKI_NO_TMPFILE=$tmpfile KIRAMEKI_FAULT=$fault LD_PRELOAD="$faults" \
        "$cli" $command >/dev/null 2>"$out/stderr"
      status=$?
      injected=$((injected + 1))
      [ "$status" -eq 1 ] || fail "$fault ($command) exited $status, expected 1"
      grep -q "Cannot write" "$out/stderr" || fail "$fault ($command) said: $(cat "$out/stderr")"
    done
    cmp -s "$out/Setting.ini" "$out/before.ini" || fail "$fault changed the old settings file"
    cmp -s "$out/shot.png" "$out/before.ini" || fail "$fault changed the old picture"
    [ "$(temporaries "$out")" -eq 0 ] || fail "$fault left a temporary file"
  done
done

# A new file fails as cleanly when its name cannot be made.
KIRAMEKI_FAULT=linkat:ENOSPC LD_PRELOAD="$faults" "$cli" render --size 32 --out "$out/new.png" 2>/dev/null
[ $? -eq 1 ] && [ ! -e "$out/new.png" ] || fail "a new picture whose name could not be made"

# A full disk during a capture: the run stops at the frame it could not write and says so.
KIRAMEKI_FAULT=write:ENOSPC:1 LD_PRELOAD="$faults" \
  "$cli" capture --sqi "$out/Full.sqi" --frames 4 --size 32 --fire off >"$out/stdout" 2>"$out/stderr"
status=$?
[ "$status" -eq 1 ] || fail "a capture onto a full disk exited $status"
grep -q "captured" "$out/stdout" && fail "a capture onto a full disk claimed success"
grep -q "Full_F\[0\].gif" "$out/stderr" || fail "the frame not written is not named: $(cat "$out/stderr")"
[ "$(frames_done "$out/Full.sqi")" -eq 0 ] || fail "the record claims frames that are not there"

# Names at the file system's limit: 255 bytes are written, longer ones fail with a reason.
stem=$(printf 'a%.0s' $(seq 240))
"$cli" capture --sqi "$out/$stem.sqi" --frames 2 --size 32 --fire off >/dev/null 2>&1 \
  || fail "a 249-byte frame name could not be written"
[ -f "$out/${stem}_F[1].gif" ] || fail "the frames with long names are missing"
stem=$(printf 'b%.0s' $(seq 250))
"$cli" capture --sqi "$out/$stem.sqi" --frames 2 --size 32 --fire off >"$out/stdout" 2>"$out/stderr"
status=$?
[ "$status" -eq 1 ] || fail "a capture whose frame names are too long exited $status"
grep -q "too long" "$out/stderr" || fail "no reason for a name too long: $(cat "$out/stderr")"
[ "$(frames_done "$out/$stem.sqi")" -eq 0 ] || fail "the record of the long names claims frames"

# Two runs on one record: the second refuses while the first holds it.
"$cli" capture --sqi "$out/Two.sqi" --frames 64 --size 128 >/dev/null 2>&1 &
first=$!
for _ in $(seq 50); do [ -f "$out/Two.sqi" ] && break; sleep 0.1; done
"$cli" capture --sqi "$out/Two.sqi" --resume >/dev/null 2>"$out/stderr"
status=$?
kill -INT "$first" 2>/dev/null
wait "$first"
[ "$status" -eq 1 ] || fail "a second run on a busy record exited $status"
grep -q "Another capture is running" "$out/stderr" || fail "no lock message: $(cat "$out/stderr")"

# A settings file that is there but may not be read is never written over.
if [ "$(id -u)" -eq 0 ] && command -v setpriv >/dev/null; then
  chmod 777 "$out"
  cp "$out/before.ini" "$out/locked.ini"
  chmod 000 "$out/locked.ini"
  setpriv --reuid=65534 --regid=65534 --clear-groups \
    "$cli" settings --file "$out/locked.ini" --rewrite >/dev/null 2>"$out/stderr"
  status=$?
  [ "$status" -eq 1 ] || fail "rewriting an unreadable settings file exited $status"
  chmod 600 "$out/locked.ini"
  cmp -s "$out/locked.ini" "$out/before.ini" || fail "an unreadable settings file was written over"
fi

# Kills at random moments, with unnamed and with named temporaries: every file is old or
# new, and after the next run every frame decodes and no temporary is left.
kills=0
for tmpfile in "" 1; do
  export KIRAMEKI_NO_TMPFILE=$tmpfile
  for i in $(seq 25); do
    LD_PRELOAD="$faults" "$cli" settings --file "$out/Setting.ini" --write-defaults &
    sleep "0.00$((RANDOM % 10))"
    kill -KILL $! 2>/dev/null
    wait $! 2>/dev/null
    kills=$((kills + 1))
    size=$(stat -c %s "$out/Setting.ini")
    [ "$size" -eq 729 ] || fail "a killed settings write left $size bytes"
  done
  for i in $(seq 12); do
    LD_PRELOAD="$faults" "$cli" capture --sqi "$out/Kill.sqi" --frames 6 --size 64 --fire off \
      >/dev/null 2>&1 &
    sleep "0.$((RANDOM % 4))$((RANDOM % 10))"
    kill -KILL $! 2>/dev/null
    wait $! 2>/dev/null
    kills=$((kills + 1))
    [ ! -e "$out/Kill.sqi" ] || [ "$(stat -c %s "$out/Kill.sqi")" -eq 272 ] || fail "a killed capture left a broken record"
  done
  LD_PRELOAD="$faults" "$cli" settings --file "$out/Setting.ini" --write-defaults
  if [ -e "$out/Kill.sqi" ]; then
    LD_PRELOAD="$faults" "$cli" capture --sqi "$out/Kill.sqi" --resume >/dev/null 2>&1
    LD_PRELOAD="$faults" "$cli" capture --sqi "$out/Kill.sqi" --resume --check-existence >/dev/null 2>&1 \
      || fail "the resume after the kills failed"
    "$cli" gif --sqi "$out/Kill.sqi" --out "$out/Kill_ANI.gif" >/dev/null 2>"$out/stderr" \
      || fail "the frames after the kills do not compile: $(cat "$out/stderr")"
  fi
  [ "$(temporaries "$out")" -eq 0 ] || fail "temporaries left after the kills: $(find "$out" -name '.*.tmp-*')"
done
unset KIRAMEKI_NO_TMPFILE

if [ "$failures" -eq 0 ]; then echo "file safety: $injected injected faults and $kills kills, nothing lost"; fi
exit $((failures > 0))
