#!/usr/bin/env bash
# package-check.sh [BUILD]: checks the Debian package that make package left
# in BUILD/package/ (BUILD defaults to build). Its dependencies are runtime
# packages only, it carries the files an installation needs and nothing of
# the build tree, it has no maintainer scripts, its programs are stripped,
# and its program, unpacked into a scratch root, translates the lolo survey
# into the very bytes the built program gives. Prints the package's control
# fields, file list and size. Ends with status 1 at the first failed check.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}

fail() {
  echo "package-check: $*" >&2
  exit 1
}

version=$(sed -n 's/^project(corvalin VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
arch=$(dpkg --print-architecture)
deb=$build/package/corvalin_${version}_${arch}.deb
[[ -f $deb ]] || fail "no package $deb: make package makes it"
survey=../shared/data/lolo-2022/tree.csv
[[ -f $survey ]] || fail "no sample survey $survey"

scratch=$(mktemp -d "${TMPDIR:-/tmp}/corvalin-package-check.XXXXXX")
trap 'rm -rf "$scratch"' EXIT

echo "== $deb"
dpkg-deb --field "$deb" Package Version Architecture Section Installed-Size Depends Recommends Homepage

# Dependencies: what the program runs on, never a development package.
depends=$(dpkg-deb --field "$deb" Depends)
recommends=$(dpkg-deb --field "$deb" Recommends)
IFS=',' read -ra entries <<<"$depends"
for entry in "${entries[@]}"; do
  name=$(sed 's/^ *//; s/[ (].*//' <<<"$entry")
  [[ $name == *-dev ]] && fail "Depends holds the development package $name"
done
for needed in libqt6widgets6 libsqlite3-0 qt6-qpa-plugins; do
  grep -Eq "(^|, )$needed( |,|$)" <<<"$depends" || fail "Depends lacks $needed: $depends"
done
[[ $recommends == xdg-utils ]] || fail "Recommends is \"$recommends\", not xdg-utils"

# The file list: under /usr only, nothing of the build tree, the tests or
# the placeholders that keep empty folders in git.
dpkg-deb --contents "$deb" >"$scratch/contents"
awk '{print $6}' "$scratch/contents" >"$scratch/paths"
grep -v '^\./usr/' "$scratch/paths" | grep -vx '\./' && fail "paths outside /usr"
build_tree=$(cd "$build" && pwd)
for unwanted in "$build_tree" "$PWD" /tests/ /CMakeFiles/ .keep '/Convert/.' '\.o$' '\.a$' result.txt TFT.mdb$; do
  grep -E -- "$unwanted" "$scratch/paths" | grep -v '/EmptyTFT\.mdb$' && fail "the package holds $unwanted"
done
required=(
  ./usr/bin/corvalin
  ./usr/lib/corvalin/corvalin-desktop.so
  ./usr/share/corvalin/EmptyTFT.mdb
  ./usr/share/corvalin/Data/
  ./usr/share/corvalin/Convert/
  ./usr/share/corvalin/Work/lolo.cnv
  ./usr/share/corvalin/Help/Orvanta.html
  ./usr/share/man/man1/corvalin.1.gz
  ./usr/share/applications/org.corvalin.corvalin.desktop
  ./usr/share/metainfo/org.corvalin.corvalin.metainfo.xml
  ./usr/share/icons/hicolor/scalable/apps/org.corvalin.corvalin.svg
)
for size in 16 24 32 48 64 128 256; do
  required+=("./usr/share/icons/hicolor/${size}x${size}/apps/org.corvalin.corvalin.png")
done
for path in "${required[@]}"; do
  grep -qxF -- "$path" "$scratch/paths" || fail "the package lacks $path"
done

# Installing and removing touch nothing but the package's own files, and
# nothing of a user's home: the only maintainer scripts are the postinst and
# postrm with which CPack calls ldconfig, and they hold nothing else.
dpkg-deb --control "$deb" "$scratch/control"
for script in preinst prerm config; do
  [[ -e $scratch/control/$script ]] && fail "the package has a $script script"
done
for script in postinst postrm; do
  [[ -e $scratch/control/$script ]] || continue
  grep -vxE '#!/bin/sh|set -e|if \[ "\$1" = "(configure|remove)" \]; then|[[:space:]]*ldconfig|fi|' \
    "$scratch/control/$script" && fail "the $script script does more than call ldconfig"
done

# Unpacked, as dpkg would place it, but under a scratch root.
root=$scratch/root
dpkg-deb --extract "$deb" "$root"
for program in usr/bin/corvalin usr/lib/corvalin/corvalin-desktop.so; do
  file "$root/$program" | grep -q ', stripped' || fail "$program is not stripped"
done
ldd "$root/usr/lib/corvalin/corvalin-desktop.so" | grep 'not found' && fail "the windows' libraries are not all found"
[[ $("$root/usr/bin/corvalin" --version) == "corvalin $version" ]] || fail "--version does not say $version"

# The same unattended run, by the unpacked and by the built program, each in
# a configured HOME of its own with its installation's template: the tree
# lists must be the same bytes.
translate() {
  local name=$1 program=$2 template=$3
  local home=$scratch/$name
  mkdir -p "$home/Data" "$home/Work" "$home/.config/Orvanta"
  printf '[Common]\r\nDataDir=%s/Data/\r\nWorkDir=%s/Work/\r\n' "$home" "$home" >"$home/.config/Orvanta/Orvanta.ini"
  cp "$template" "$home/Work/lolo.cnv"
  local status=0
  env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM HOME="$home" XDG_CONFIG_HOME="$home/.config" \
    "$program" "$survey" "$home/lolo.tre" lolo 2>"$home/errors" || status=$?
  [[ $status -eq 0 ]] || { cat "$home/errors" >&2; fail "$name run ended with status $status"; }
  [[ -s $home/errors ]] && { cat "$home/errors" >&2; fail "$name run wrote to standard error"; }
  [[ $(cat "$home/Work/result.txt") == $'TRANSLATION SUCCESSFUL\r' ]] || fail "$name run's result.txt: $(cat "$home/Work/result.txt")"
  return 0
}
translate packaged "$root/usr/bin/corvalin" "$root/usr/share/corvalin/Work/lolo.cnv"
translate built "$build/bin/corvalin" "$build/share/corvalin/Work/lolo.cnv"
cmp "$scratch/packaged/lolo.tre" "$scratch/built/lolo.tre" || fail "the tree lists differ"
lines=$(wc -l <"$scratch/packaged/lolo.tre")
bytes=$(wc -c <"$scratch/packaged/lolo.tre")
[[ $lines -gt 0 ]] || fail "the tree list is empty"

echo "== files"
cat "$scratch/contents"
echo "== size"
echo "$(stat -c %s "$deb") bytes, installed $(dpkg-deb --field "$deb" Installed-Size) KiB, $(grep -vc '/$' "$scratch/paths") files"
echo "== package-check: passed; the unpacked program's lolo tree list: $lines records, $bytes bytes, the built program's bytes"
