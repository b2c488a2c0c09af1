#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Checks an installed tree: every program in bin with its gzipped manual page
# and named by the metadata, the menu entry and metadata under the application
# id, the icon in every size, and the documents; the metadata's newest release
# and the changelog's top entry carry the project's version.
#   check-layout.sh PREFIX APP_ID VERSION PROGRAM...
set -u
[ $# -ge 4 ] || { echo "usage: check-layout.sh PREFIX APP_ID VERSION PROGRAM..." >&2; exit 2; }
prefix=$1 id=$2 version=$3
shift 3
failures=0
fail() { echo "check-layout: $*" >&2; failures=$((failures + 1)); }

desktop=$prefix/share/applications/$id.desktop
metainfo=$prefix/share/metainfo/$id.metainfo.xml
doc=$prefix/share/doc/vornlink
for file in "$desktop" "$metainfo" "$doc/copyright" "$doc/LICENSE" "$doc/changelog.gz"; do
  [ -f "$file" ] || fail "missing $file"
done

for program in "$@"; do
  [ -x "$prefix/bin/$program" ] || fail "bin/$program missing"
  gzip -t "$prefix/share/man/man1/$program.1.gz" 2>/dev/null || fail "no gzipped manual page for $program"
  grep -qx "    <binary>$program</binary>" "$metainfo" || fail "the metadata does not provide $program"
done
for file in "$prefix"/bin/*; do
  name=${file##*/}
  case " $* " in *" $name "*) ;; *) fail "bin/$name is not a recorded program" ;; esac
done
[ "$(grep -c '<binary>' "$metainfo")" -eq $# ] || fail "the metadata provides other binaries"

grep -qx "Icon=$id" "$desktop" || fail "the menu entry's Icon is not $id"
grep -qx "Exec=vornlink" "$desktop" || fail "the menu entry does not start vornlink"
grep -q "<id>$id</id>" "$metainfo" || fail "the metadata's id is not $id"
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$metainfo" || fail "launchable is not $id.desktop"
newest=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$metainfo" | head -n 1)
[ "$newest" = "$version" ] || fail "the metadata's newest release is '$newest', not $version"
top=$(gzip -dc "$doc/changelog.gz" | head -n 1)
[ "${top%%;*}" = "vornlink ($version) unstable" ] || fail "the changelog begins '$top', not version $version"

[ -f "$prefix/share/icons/hicolor/scalable/apps/$id.svg" ] || fail "no scalable icon"
for size in 16 24 32 48 64 128 256; do
  png=$prefix/share/icons/hicolor/${size}x${size}/apps/$id.png
  # Width and height: the first two big-endian words of the PNG header's IHDR.
  dimensions=$(od -An -tu1 -j16 -N8 "$png" 2>/dev/null | awk '{print $1*16777216+$2*65536+$3*256+$4 "x" $5*16777216+$6*65536+$7*256+$8}')
  [ "$dimensions" = "${size}x${size}" ] || fail "icon $png is '$dimensions', not ${size}x${size}"
done

[ -f "$prefix/share/bash-completion/completions/vornctl" ] || fail "no bash completion for vornctl"
[ -f "$prefix/share/zsh/vendor-completions/_vornctl" ] || fail "no zsh completion for vornctl"

[ "$failures" -eq 0 ] && echo "check-layout: $prefix is complete ($# programs)"
[ "$failures" -eq 0 ]
