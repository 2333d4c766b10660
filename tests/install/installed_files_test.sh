#!/usr/bin/env bash
# Installs the build into a scratch prefix and checks what a distribution checks: the desktop
# entry, the AppStream data, every icon size, the manual pages and the bash completion.
set -u
build="$1"
id="$2"
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

cmake --install "$build" --prefix "$prefix" >/dev/null || { echo "FAIL: cmake --install"; exit 1; }
share="$prefix/share"
for program in kirameki kirameki-cli; do
  [ -x "$prefix/bin/$program" ] || fail "bin/$program not installed"
done
desktop-file-validate "$share/applications/$id.desktop" || fail "desktop entry"
appstreamcli validate --no-net "$share/metainfo/$id.metainfo.xml" >/dev/null ||
  { appstreamcli validate --no-net "$share/metainfo/$id.metainfo.xml"; fail "AppStream data"; }
[ -f "$share/icons/hicolor/scalable/apps/$id.svg" ] || fail "SVG icon"
for size in 16 22 24 32 48 64 128 256 512; do
  png="$share/icons/hicolor/${size}x${size}/apps/$id.png"
  file -b "$png" 2>/dev/null | grep -q "PNG image data, $size x $size" || fail "icon $png"
done
for page in kirameki kirameki-cli; do
  file="$share/man/man1/$page.1.gz"
  [ -f "$file" ] || { fail "manual page $page"; continue; }
  warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$file" 2>&1 >/dev/null)
  [ -z "$warnings" ] || fail "manual page $page: $warnings"
done
"$prefix/bin/kirameki-cli" tables >/dev/null || fail "installed kirameki-cli does not run"
completion="$share/bash-completion/completions/kirameki-cli"
bash -n "$completion" 2>/dev/null && grep -q "complete -F _kirameki_cli kirameki-cli" "$completion" \
  || fail "bash completion of kirameki-cli"

# Installed in a prefix the user can write to, the program is not portable: its pictures go
# to the pictures folder that user-dirs.dirs names (a Japanese one here).
home="$prefix/home"
mkdir -p "$home/.config"
echo 'XDG_PICTURES_DIR="$HOME/画像"' >"$home/.config/user-dirs.dirs"
HOME="$home" XDG_CONFIG_HOME= "$prefix/bin/kirameki-cli" settings --file "$prefix/Setting.ini" \
  --write-defaults || fail "settings --write-defaults"
HOME="$home" XDG_CONFIG_HOME= "$prefix/bin/kirameki-cli" settings --file "$prefix/Setting.ini" \
  --dump | grep -q "\"$home/画像/Kirameki/ScreenShots/\"" || fail "installed program is portable"

[ "$failures" -eq 0 ] && echo "installed files: all good"
exit $((failures > 0))
