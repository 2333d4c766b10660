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

# Models out: a welded OBJ with its material, a watertight STL in millimetres, a glTF binary
# with the stone's optics; each opens in assimp without a warning.
expect_status 0 model --cut 23 --obj "$out/sphere.obj" --stone 2
grep -q '^mtllib sphere.mtl$' "$out/sphere.obj" && grep -q '^newmtl Emerald_Green$' "$out/sphere.mtl" \
  || { echo "FAIL: OBJ material"; failures=$((failures + 1)); }
expect_status 0 model --cut 23 --stl "$out/sphere.stl" --girdle 20
expect_status 0 model --cut 0 --glb "$out/stone.glb" --colour 3
expect_status 2 model --cut 0 --stl "$out/a.stl" --glb "$out/a.glb"
expect_status 2 model --cut 0 --stl "$out/a.stl" --girdle 0
python3 -c '
import json, struct, sys
data = open(sys.argv[1], "rb").read()
magic, version, length, size, kind = struct.unpack_from("<4sIIII", data)
assert magic == b"glTF" and version == 2 and length == len(data) and kind == 0x4E4F534A
gltf = json.loads(data[20:20 + size])
assert set(gltf["extensionsUsed"]) == {"KHR_materials_ior", "KHR_materials_transmission",
    "KHR_materials_volume", "KHR_materials_dispersion"}
assert gltf["nodes"][0]["name"] == "BrilliantCut (R)"
assert gltf["materials"][0]["extensions"]["KHR_materials_volume"]["attenuationColor"][2] == 1
' "$out/stone.glb" || { echo "FAIL: glTF binary"; failures=$((failures + 1)); }
if command -v admesh >/dev/null; then
  admesh "$out/sphere.stl" | awk '/disconnected edge/ { open += $NF } END { exit open != 0 }' \
    || { echo "FAIL: STL has open edges"; failures=$((failures + 1)); }
fi
if command -v assimp >/dev/null; then
  for model in sphere.obj sphere.stl stone.glb; do
    log=$(assimp info "$out/$model" -l 2>&1)
    if ! grep -q "Importing file .*OK" <<<"$log" || grep -q "^Warn" <<<"$log"; then
      echo "FAIL: assimp on $model:"; grep -E "^(Warn|Error)" <<<"$log"; failures=$((failures + 1))
    fi
  done
fi

# The settings file: 729 bytes of defaults, dumped as JSON, and a damaged one refused.
expect_status 0 settings --file "$out/Setting.ini" --write-defaults
[ "$(stat -c %s "$out/Setting.ini")" -eq 729 ] || { echo "FAIL: settings size"; failures=$((failures + 1)); }
expect_status 0 settings --file "$out/Setting.ini" --dump
python3 -c 'import json,sys; s=json.load(open(sys.argv[1])); assert s["imageSize"]==270 and len(s["modelParameters"])==12' "$out/stdout" \
  || { echo "FAIL: settings JSON"; failures=$((failures + 1)); }
printf 'c\0\0\0' > "$out/bad.ini"  # polygon colour 99, everything else zero: size 0
expect_status 2 render --settings "$out/bad.ini" --out "$out/bad.png"

# A small capture, its animated GIF, and a gap that the compiler refuses.
expect_status 0 capture --sqi "$out/Gem.sqi" --frames 4 --size 32 --fire off
[ -f "$out/Gem_F[3].gif" ] || { echo "FAIL: capture frames"; failures=$((failures + 1)); }
expect_status 0 capture --sqi "$out/Gem.sqi" --resume
expect_status 0 gif --sqi "$out/Gem.sqi" --out "$out/Gem_ANI.gif" --clockwise
# The same frames as an animated WebP, lossless or lossy; a quality alone is bad usage.
expect_status 0 gif --sqi "$out/Gem.sqi" --out "$out/Gem_ANI.webp" --webp
expect_status 0 gif --sqi "$out/Gem.sqi" --out "$out/Gem_Q.webp" --webp --quality 40
for webp in Gem_ANI Gem_Q; do
  python3 -c 'import sys; d=open(sys.argv[1],"rb").read(); assert d[:4]==b"RIFF" and d[8:12]==b"WEBP" and b"ANIM" in d and b"ANMF" in d' \
    "$out/$webp.webp" || { echo "FAIL: $webp.webp is no animated WebP"; failures=$((failures + 1)); }
done
expect_status 2 gif --sqi "$out/Gem.sqi" --out "$out/Gem_X.webp" --quality 40
expect_status 2 gif --sqi "$out/Gem.sqi" --out "$out/Gem_X.webp" --webp --quality 101
rm "$out/Gem_F[2].gif"
expect_status 0 capture --sqi "$out/Gem.sqi" --resume  # complete: only the turn back
[ -f "$out/Gem_F[2].gif" ] && { echo "FAIL: a plain resume of a complete set rendered"; failures=$((failures + 1)); }
"$cli" gif --sqi "$out/Gem.sqi" --out "$out/Gem_ANI2.gif" >/dev/null 2>"$out/stderr"
grep -q 'Gem_F\[2\].gif' "$out/stderr" || { echo "FAIL: missing frame not named"; failures=$((failures + 1)); }
[ -f "$out/Gem_ANI2.gif" ] && { echo "FAIL: GIF written despite a gap"; failures=$((failures + 1)); }
expect_status 0 capture --sqi "$out/Gem.sqi" --resume --check-existence
[ -f "$out/Gem_F[2].gif" ] || { echo "FAIL: existence check did not complete the set"; failures=$((failures + 1)); }

# A resume draws at the depth of the settings it is given (the record holds no depth), as
# the viewer's resume draws at the depth of its settings; --depth says it outright.
expect_status 0 capture --sqi "$out/Deep.sqi" --frames 2 --size 32 --fire off --depth 1
cp "$out/Deep_F[1].gif" "$out/depth1.gif"
"$cli" settings --file "$out/Depth1.ini" --write-defaults
printf '\1' | dd of="$out/Depth1.ini" bs=1 seek=40 conv=notrunc status=none  # depth 1
for flags in "--settings $out/Depth1.ini" "--depth 1"; do
  rm "$out/Deep_F[1].gif"
  expect_status 0 capture --sqi "$out/Deep.sqi" --resume --check-existence $flags
  cmp -s "$out/Deep_F[1].gif" "$out/depth1.gif" || { echo "FAIL: resume with $flags drew at another depth"; failures=$((failures + 1)); }
done
rm "$out/Deep_F[1].gif"
expect_status 0 capture --sqi "$out/Deep.sqi" --resume --check-existence
cmp -s "$out/Deep_F[1].gif" "$out/depth1.gif" && { echo "FAIL: the default depth drew as depth 1"; failures=$((failures + 1)); }
expect_status 2 capture --sqi "$out/Deep.sqi" --resume --stone 2

# Designs: a built-in cut written as a design, read back as JSON, rendered, and captured with
# the design beside the record so that a resume draws the same stone.
expect_status 0 design --cut 8 --out "$out/Scissors.asc"
expect_status 0 design --in "$out/Scissors.asc" --json
python3 -c 'import json,sys; d=json.load(open(sys.argv[1])); assert d["gear"]==96 and d["faces"]==45 and all(all(t["touching"]) for t in d["tiers"])' "$out/stdout" \
  || { echo "FAIL: design JSON"; failures=$((failures + 1)); }
expect_status 0 capture --sqi "$out/Des.sqi" --design "$out/Scissors.asc" --frames 2 --size 32 --fire off
cmp -s "$out/Des.asc" "$out/Scissors.asc" || { echo "FAIL: no design beside the record"; failures=$((failures + 1)); }
cp "$out/Des_F[1].gif" "$out/des1.gif"; rm "$out/Des_F[1].gif"
expect_status 0 capture --sqi "$out/Des.sqi" --resume --check-existence
cmp -s "$out/Des_F[1].gif" "$out/des1.gif" || { echo "FAIL: the resume drew another stone"; failures=$((failures + 1)); }
printf 'GemCad 5.0\ng 96\na 40 0.9 0 24 48 72\n' > "$out/open.asc"
expect_status 2 render --design "$out/open.asc" --out "$out/open.png"
grep -q "line 3: the design is open" "$out/stderr" || { echo "FAIL: open design message: $(cat "$out/stderr")"; failures=$((failures + 1)); }

# The shell's conventions: --help and -h everywhere, --version, --opt=value and --.
for command in tables model preview render settings capture gif design batch metrics; do
  for help in --help -h; do
    expect_status 0 $command $help
    grep -q -- "--help" "$out/stdout" || { echo "FAIL: $command $help printed no options"; failures=$((failures + 1)); }
  done
done
expect_status 0 --version
grep -qE '^kirameki-cli [0-9]+\.[0-9]+' "$out/stdout" || { echo "FAIL: --version: $(cat "$out/stdout")"; failures=$((failures + 1)); }
expect_status 0 model --cut=12 --json --
python3 -c 'import json,sys; assert json.load(open(sys.argv[1]))["cut"] == 12' "$out/stdout" \
  || { echo "FAIL: --cut=12"; failures=$((failures + 1)); }
expect_status 2 model --cut 12 --json -- extra
expect_status 2 render --fire=maybe --out "$out/x.png"

# The scene flags all apply, in the order given: two turns make one of both rounds, and a
# stone chosen after a colour brings its own colour.
picture() { "$cli" render --size 48 --fire off --out - --format 4 "$@" 2>/dev/null | md5sum; }
[ "$(picture --turn 1006:5 --turn=1006:5)" = "$(picture --turn 1006:10)" ] \
  && [ "$(picture --turn 1006:10)" != "$(picture --turn 1006:5)" ] \
  && [ "$(picture --stone 2 --colour 3)" != "$(picture --colour 3 --stone 2)" ] \
  || { echo "FAIL: the scene flags in order"; failures=$((failures + 1)); }

# '-' is standard output; a write there that fails (a closed pipe, a full disk) is exit 1 and
# one line. The picture is larger than a pipe holds, so head's exit always closes it early.
expect_status 0 render --out - --format 4 --size 32 --fire off
[ "$(head -c 8 "$out/stdout" | od -An -tx1 | tr -d ' ')" = 89504e470d0a1a0a ] \
  || { echo "FAIL: render --out - gave no PNG"; failures=$((failures + 1)); }
cp "$out/stdout" "$out/shot.png"
expect_status 0 model --cut 0 --obj -
[ "$(grep -c '^f ' "$out/stdout")" -eq 57 ] && ! grep -q mtllib "$out/stdout" \
  || { echo "FAIL: OBJ on standard output"; failures=$((failures + 1)); }
one_line_failure() {  # what, then the status of the write
  if [ "$2" -ne 1 ] || [ "$(wc -l <"$out/stderr")" -ne 1 ]; then
    echo "FAIL: $1 exited $2 with: $(cat "$out/stderr")"; failures=$((failures + 1))
  fi
}
"$cli" render --out - --format 1 --size 512 --fire off 2>"$out/stderr" | head -c1 >/dev/null
one_line_failure "a picture into a closed pipe" "${PIPESTATUS[0]}"
for command in "tables" "render --out - --format 4 --size 32 --fire off"; do
  "$cli" $command >/dev/full 2>"$out/stderr"
  one_line_failure "$command onto a full disk" $?
  python3 -c 'import os, subprocess, sys
r, w = os.pipe(); os.close(r)  # a pipe whose reader has gone before the first write
sys.exit(subprocess.run(sys.argv[2:], stdout=w, stderr=open(sys.argv[1], "wb")).returncode)' \
    "$out/stderr" "$cli" $command
  one_line_failure "$command into a closed pipe" $?
done

# Only a settings file is read as one.
expect_status 2 settings --file "$out/shot.png" --dump
grep -q "not a settings file" "$out/stderr" || { echo "FAIL: a PNG read as settings: $(cat "$out/stderr")"; failures=$((failures + 1)); }
cp "$out/shot.png" "$out/kept.png"
expect_status 2 settings --file "$out/shot.png" --rewrite
cmp -s "$out/shot.png" "$out/kept.png" || { echo "FAIL: a PNG rewritten as settings"; failures=$((failures + 1)); }
expect_status 2 settings --file "$out" --dump
# A folder path in Shift-JIS and a refractive index that is no number, as an old or damaged
# settings file may hold: still valid JSON.
python3 -c 'import struct, sys; p=sys.argv[1]; d=bytearray(open(p,"rb").read()); i=d.index(b"/"); d[i+1:i+3]=b"\x82\xa0"
struct.pack_into("<d", d, 16, float("nan")); open(p,"wb").write(d)' "$out/Setting.ini"
expect_status 0 settings --file "$out/Setting.ini" --dump
python3 -c 'import json,sys; s=json.load(open(sys.argv[1])); assert s["refractiveIndex"] is None and any("\ufffd" in v for v in s.values() if isinstance(v, str))' "$out/stdout" \
  || { echo "FAIL: a Shift-JIS path or a NaN in the settings JSON"; failures=$((failures + 1)); }

# Designs as models and previews; every JSON valid whatever bytes its texts came in: a title in
# Windows-1252 and a file name that is no UTF-8 at all.
odd="$out/$(printf 'caf\xe9')"
{ printf 'GemCad 5.0\r\nH Caf\xe9 \x93Scissors\x94\r\n'; grep -v '^H' "$out/Scissors.asc" | tail -n +2; } >"$odd.asc"
expect_status 0 design --in "$odd.asc" --json
python3 -c 'import json,sys; d=json.load(open(sys.argv[1])); assert d["titles"][0]=="Caf\u00e9 \u201cScissors\u201d", d["titles"]' "$out/stdout" \
  || { echo "FAIL: a Windows-1252 title in the design JSON"; failures=$((failures + 1)); }
expect_status 0 model --design "$odd.asc" --json
python3 -c 'import json,sys; m=json.load(open(sys.argv[1])); assert m["name"]=="Caf\u00e9 \u201cScissors\u201d" and m["design"].endswith("caf\ufffd.asc") and len(m["faces"])==45' "$out/stdout" \
  || { echo "FAIL: model --design --json"; failures=$((failures + 1)); }
expect_status 0 model --design "$odd.asc" --stl "$out/design.stl"
expect_status 2 model --design "$odd.asc" --cut 3 --json
expect_status 0 preview --design "$odd.asc" --out "$out/design.png" --size 64
[ -s "$out/design.png" ] || { echo "FAIL: preview --design"; failures=$((failures + 1)); }
expect_status 2 preview --design "$out/open.asc" --out "$out/open.png"

# Light performance: figures that parse and add up, a report of pictures, the lighting models.
expect_status 0 metrics --size 64 --tilt-steps 3 --json
python3 - "$out/stdout" <<'PY' || { echo "FAIL: metrics JSON"; failures=$((failures + 1)); }
import json, sys
m = json.load(open(sys.argv[1]))
f = m["faceUp"]
assert 0 < f["isoBrightness"] <= 100 and len(m["tilts"]) == 3, m
assert abs(f["asetGreen"] + f["asetRed"] + f["asetBlue"] + f["asetBlack"] - 100) < 1e-6
assert "fire" in f and "fire" not in m["tiltAverage"]
PY
expect_status 0 metrics --design "$out/Scissors.asc" --size 48 --tilt-steps 3 --report "$out/report"
for f in iso cos aset spectral tilt; do
  [ "$(head -c 4 "$out/report/$f.png" | tail -c 3)" = "PNG" ] || { echo "FAIL: report $f.png"; failures=$((failures + 1)); }
done
python3 -c 'import json,sys; json.load(open(sys.argv[1]))' "$out/report/metrics.json" \
  || { echo "FAIL: report metrics.json"; failures=$((failures + 1)); }
expect_status 2 metrics --tilt-steps 4
expect_status 2 metrics --head-shadow 60
expect_status 0 render --lighting aset --head-shadow 16 --size 48 --out "$out/aset.png"
expect_status 0 render --spectral 8 --size 48 --out "$out/spectral.png"
expect_status 2 render --lighting bogus --out "$out/x.png"

if [ "$failures" -eq 0 ]; then echo "cli: all checks passed"; fi
exit $((failures > 0))
